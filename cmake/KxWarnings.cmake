# kx_add_warnings(TARGET): the warnings that all code here is free of.
function(kx_add_warnings target)
  target_compile_options(${target} PRIVATE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wold-style-cast -Wnon-virtual-dtor
    -Wcast-align -Woverloaded-virtual)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang") # of QTEST_MAIN and its like
    target_compile_options(${target} PRIVATE -Wno-gnu-zero-variadic-macro-arguments)
  endif()
  if(KX_WARNINGS_ARE_ERRORS)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
endfunction()
