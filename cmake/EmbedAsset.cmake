# hierfit_embed(TARGET NAME FILE...) compiles files of text, one behind the other, into a target of the same folder,
# together with the hash by which a content security policy names them. C++ finds them as hierfit_asset_NAME_begin, _end
# and _hash (which ends in a zero byte). Blanks at the beginning of lines and lines that begin with "//" are left out,
# since every page carries them: no string of a FILE may span lines.
#
# Files whose names end in ".js" are modules, of which one script is made: each stands behind those that it imports, no
# two have the same name for something, and what an import names has the same name in both files.
#
# The hash is taken when the files are built, so they may be built themselves. For that this file runs as a script, too.

function(hierfit_hash_base64 file result)
  set(digits ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/)
  file(SHA256 "${file}" hex)
  string(REGEX MATCHALL "......" groups "${hex}00")
  set(base64 "")
  foreach(group IN LISTS groups)
    foreach(shift 18 12 6 0)
      math(EXPR digit "(0x${group} >> ${shift}) & 63")
      string(SUBSTRING "${digits}" ${digit} 1 digit)
      string(APPEND base64 "${digit}")
    endforeach()
  endforeach()
  string(REGEX REPLACE "A$" "=" base64 "${base64}")  # 32 bytes and one of padding
  set(${result} "${base64}" PARENT_SCOPE)
endfunction()

# Inside its element a text must not spell the element's end, nor what a parser takes for a comment's begin.
function(hierfit_check_inline file)
  file(READ "${file}" text)
  string(TOLOWER "${text}" text)
  foreach(forbidden "</script" "</style" "<!--")
    string(FIND "${text}" "${forbidden}" place)
    if(NOT place EQUAL -1)
      message(FATAL_ERROR "${file} must not hold ${forbidden}")
    endif()
  endforeach()
endfunction()

# Names are known in the whole script, so nothing is imported, and to other scripts of the page none of them.
function(hierfit_join files output)
  set(text "")
  foreach(file IN LISTS files)
    file(READ "${file}" part)
    string(APPEND text "\n${part}")
  endforeach()
  if(files MATCHES "\\.js$")
    string(REGEX REPLACE "\nimport [^;]*;" "\n" text "${text}")
    string(REGEX REPLACE "\nexport " "\n" text "${text}")
    set(text "\n\"use strict\";\n(() => {${text}})();\n")
  endif()
  string(REGEX REPLACE "\n[ \t]*(//[^\n]*)?" "\n" text "${text}")
  string(REGEX REPLACE "\n\n+" "\n" text "${text}")
  string(REGEX REPLACE "^\n" "" text "${text}")
  file(WRITE "${output}" "${text}")
endfunction()

function(hierfit_write_asset name files output)
  set(file "${output}.text")
  hierfit_join("${files}" "${file}")
  hierfit_check_inline("${file}")
  hierfit_hash_base64("${file}" hash)
  set(symbol "hierfit_asset_${name}")
  set(lines ".section .rodata")
  foreach(part begin end hash)
    string(APPEND lines "\n.global ${symbol}_${part}\n.hidden ${symbol}_${part}")
  endforeach()
  string(APPEND lines
    "\n${symbol}_begin:\n.incbin \"${file}\"\n${symbol}_end:\n.byte 0"
    "\n${symbol}_hash:\n.asciz \"sha256-${hash}\"\n.section .note.GNU-stack,\"\",%progbits\n")
  file(WRITE "${output}" "${lines}")
endfunction()

if(CMAKE_SCRIPT_MODE_FILE)
  hierfit_write_asset("${NAME}" "${FILES}" "${OUTPUT}")
  return()
endif()

set(HIERFIT_EMBED_SCRIPT "${CMAKE_CURRENT_LIST_FILE}")

function(hierfit_embed target name)
  set(output "${CMAKE_CURRENT_BINARY_DIR}/${name}.S")
  add_custom_command(OUTPUT "${output}"
    COMMAND "${CMAKE_COMMAND}" -D "NAME=${name}" -D "FILES=${ARGN}" -D "OUTPUT=${output}" -P "${HIERFIT_EMBED_SCRIPT}"
    DEPENDS ${ARGN} "${HIERFIT_EMBED_SCRIPT}"
    VERBATIM)
  target_sources(${target} PRIVATE "${output}")
endfunction()
