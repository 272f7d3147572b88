# Headers of the libraries, parsed once a target and not once a source. The preset "clang" goes without, so that a
# source that leaves out an include of its own does not pass unseen.
option(KORVA_PRECOMPILE "Precompile the headers of the libraries" ON)

# Further arguments: the headers, each as it stands between < and > in a source.
function(korva_precompile target)
  if(KORVA_PRECOMPILE)
    list(TRANSFORM ARGN REPLACE "(.+)" "<\\1>")
    target_precompile_headers(${target} PRIVATE ${ARGN})
  endif()
endfunction()

# For a target with the same compiler settings as `other`: takes the headers that were precompiled there.
function(korva_precompiled_by target other)
  if(KORVA_PRECOMPILE)
    target_precompile_headers(${target} REUSE_FROM ${other})
  endif()
endfunction()
