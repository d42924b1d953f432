# What every target of the project is compiled with.
function(nsdirectory_target target)
  target_compile_features(${target} PUBLIC cxx_std_17)
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
  target_compile_options(${target} PRIVATE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wold-style-cast -Wcast-qual
    $<$<BOOL:${NSDIRECTORY_WARNINGS_AS_ERRORS}>:-Werror>)
endfunction()
