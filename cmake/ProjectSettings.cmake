# One settings target that every target links: warnings, sanitizers and the
# standard library's debug assertions.
add_library(project_settings INTERFACE)
target_compile_options(project_settings INTERFACE -Wall -Wextra)
target_compile_definitions(project_settings INTERFACE
  $<$<CONFIG:Debug>:_GLIBCXX_ASSERTIONS>)

if(ORDALIS_SANITIZE)
  set(_san -fsanitize=address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
  target_compile_options(project_settings INTERFACE ${_san})
  target_link_options(project_settings INTERFACE ${_san})
endif()
