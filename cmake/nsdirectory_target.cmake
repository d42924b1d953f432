# What every target of the project is compiled with.
function(nsdirectory_target target)
  target_compile_features(${target} PUBLIC cxx_std_17)
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
  # On hosts of 32 bits: sizes above 2 GiB and dates after January 2038.
  target_compile_definitions(${target} PRIVATE _FILE_OFFSET_BITS=64 _TIME_BITS=64)
  target_compile_options(${target} PRIVATE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wold-style-cast -Wcast-qual
    $<$<BOOL:${NSDIRECTORY_WARNINGS_AS_ERRORS}>:-Werror>)
endfunction()
