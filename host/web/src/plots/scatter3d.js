// A 3-D scatter (plot type 1) of the first three variables: three.js points
// in a unit cube, coloured by the third variable, turned with the mouse.
import * as THREE from 'three';
import { OrbitControls } from 'three/examples/jsm/controls/OrbitControls.js';
import { h } from '../dom.js';
import { colorMap } from './colors.js';
import { extent } from './plotdata.js';

function webglAvailable() {
  try {
    return Boolean(document.createElement('canvas').getContext('webgl2'));
  } catch {
    return false;
  }
}

export function scatter3d(target, plot, variables, width, height) {
  if (!webglAvailable()) {
    const note = h('p', { class: 'plot-note' }, 'The 3-D view needs WebGL, which this browser does not offer.');
    target.append(note);
    return { destroy: () => note.remove() };
  }
  const [xs, ys, zs] = plot.series;
  const ranges = [extent(xs), extent(ys), extent(zs)];
  const positions = new Float32Array(plot.count * 3);
  const colors = new Float32Array(plot.count * 3);
  for (let i = 0; i < plot.count; i += 1) {
    [xs, ys, zs].forEach((values, axis) => {
      const [lo, hi] = ranges[axis];
      positions[i * 3 + axis] = (values[i] - lo) / (hi - lo) - 0.5;
    });
    const [r, g, b] = colorMap(positions[i * 3 + 2] + 0.5);
    colors.set([r / 255, g / 255, b / 255], i * 3);
  }
  const geometry = new THREE.BufferGeometry();
  geometry.setAttribute('position', new THREE.BufferAttribute(positions, 3));
  geometry.setAttribute('color', new THREE.BufferAttribute(colors, 3));
  const material = new THREE.PointsMaterial({ size: 3, sizeAttenuation: false, vertexColors: true });

  const scene = new THREE.Scene();
  scene.background = new THREE.Color(0xffffff);
  scene.add(new THREE.Points(geometry, material));
  scene.add(new THREE.Box3Helper(new THREE.Box3(new THREE.Vector3(-0.5, -0.5, -0.5), new THREE.Vector3(0.5, 0.5, 0.5)), 0x999999));
  scene.add(new THREE.AxesHelper(0.6).translateX(-0.5).translateY(-0.5).translateZ(-0.5));

  const camera = new THREE.PerspectiveCamera(45, width / height, 0.01, 100);
  camera.up.set(0, 0, 1);
  camera.position.set(1.4, -1.6, 1.1);
  const renderer = new THREE.WebGLRenderer({ antialias: true, preserveDrawingBuffer: true });
  renderer.setPixelRatio(devicePixelRatio);
  renderer.setSize(width, height);
  const legend = h('p', { class: 'plot-note' }, `x: ${variables[0]}, y: ${variables[1]}, z: ${variables[2]} (colour)`);
  target.append(renderer.domElement, legend);

  const controls = new OrbitControls(camera, renderer.domElement);
  const draw = () => renderer.render(scene, camera);
  controls.addEventListener('change', draw);
  draw();
  return {
    destroy: () => {
      controls.dispose();
      geometry.dispose();
      material.dispose();
      renderer.dispose();
      renderer.domElement.remove();
      legend.remove();
    },
  };
}
