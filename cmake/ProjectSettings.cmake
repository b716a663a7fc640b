# One settings target that every target links: warnings, sanitizers and the
# standard library's debug assertions.
add_library(project_settings INTERFACE)
target_compile_options(project_settings INTERFACE -Wall -Wextra)
target_compile_definitions(project_settings INTERFACE
  $<$<CONFIG:Debug>:_GLIBCXX_ASSERTIONS>)

if(ORDALIS_FUZZ)
  # Coverage for libFuzzer in every target; the harnesses add its main.
  set(_fuzz -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=undefined
            -fno-omit-frame-pointer)
  target_compile_options(project_settings INTERFACE ${_fuzz})
  target_link_options(project_settings INTERFACE -fsanitize=address,undefined)
endif()

if(ORDALIS_SANITIZE)
  set(_san -fsanitize=address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
  target_compile_options(project_settings INTERFACE ${_san})
  target_link_options(project_settings INTERFACE ${_san})
endif()
