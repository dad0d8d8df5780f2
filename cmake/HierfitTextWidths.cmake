# The widths of characters, for C++: makes a header of constants from the table that the page's charts use too.

# Flattens a JSON array of numbers, or of pairs of numbers, into the inside of a C++ initialiser.
function(hierfit_initialiser result json)
  string(REGEX REPLACE "[^0-9,]" "" numbers "${json}")
  set(${result} "${numbers}" PARENT_SCOPE)
endfunction()

function(hierfit_text_widths json_file header)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${json_file}")
  file(READ "${json_file}" table)
  string(JSON other GET "${table}" other)
  set(lines "inline constexpr int kOtherWidth = ${other};\n")
  foreach(name ranges zero wide regular bold)
    string(JSON values GET "${table}" ${name})
    hierfit_initialiser(values "${values}")
    string(REGEX REPLACE "([0-9]+,[0-9]+,[0-9]+,[0-9]+,[0-9]+,[0-9]+,[0-9]+,[0-9]+,)" "\\1\n    " values "${values}")
    string(APPEND lines "inline constexpr int k_${name}[] = {\n    ${values}};\n")
  endforeach()
  file(CONFIGURE OUTPUT "${header}" CONTENT
    "#pragma once\n\nnamespace hierfit::chart::widths {\n\n${lines}\n}  // namespace hierfit::chart::widths\n" @ONLY)
endfunction()
