# Makes the manual page of zaro from the tool's own help, so that the two say
# the same. Run as a script:
#   cmake -DZARO=path/to/zaro -DVERSION=1.0.0 -DSAMPLE=share/zaro/sample -DOUT=zaro.1 -P ZaroManPage.cmake
# The page holds the tool's help (DESCRIPTION), each command's help (COMMANDS)
# and where the sample day lives (FILES). The help is laid out in columns, so
# it goes in as preformatted text.
cmake_policy(VERSION 3.25)

foreach(var ZARO VERSION SAMPLE OUT)
  if(NOT DEFINED ${var})
    message(FATAL_ERROR "ZaroManPage.cmake needs -D${var}=...")
  endif()
endforeach()

# CMake lists split at ";", which the help text holds: it travels as \x01.
string(ASCII 1 semicolon)

function(zaro_help out_var)
  execute_process(COMMAND ${ZARO} ${ARGN} OUTPUT_VARIABLE text RESULT_VARIABLE status ERROR_VARIABLE err)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "zaro ${ARGN} failed (${status}): ${err}")
  endif()
  string(REPLACE ";" "${semicolon}" text "${text}")
  set(${out_var} "${text}" PARENT_SCOPE)
endfunction()

# Text for roff: a backslash is \e, a minus \- (so options copy as typed),
# and a line that starts with a dot or an apostrophe is not a request.
function(roff out_var text)
  string(REPLACE "\\" "\\e" text "${text}")
  string(REPLACE "-" "\\-" text "${text}")
  string(REGEX REPLACE "(^|\n)([.'])" "\\1\\\\&\\2" text "${text}")
  set(${out_var} "${text}" PARENT_SCOPE)
endfunction()

zaro_help(help --help)
# "zaro: what it is\n\nUsage: ...": the first line names the tool.
string(FIND "${help}" "\n" eol)
string(SUBSTRING "${help}" 0 ${eol} first)
string(SUBSTRING "${help}" ${eol} -1 rest)
string(REGEX REPLACE "^zaro: " "" summary "${first}")
string(STRIP "${rest}" rest)

# The commands are the first words of the "Commands:" block.
string(REGEX MATCH "Commands:\n(.*)\n\n" block "${help}")
string(REGEX MATCHALL "(^|\n)  [a-z]+ " words "${CMAKE_MATCH_1}")
set(commands)
foreach(w IN LISTS words)
  string(STRIP "${w}" w)
  if(NOT w STREQUAL "help")
    list(APPEND commands "${w}")
  endif()
endforeach()
if(NOT commands)
  message(FATAL_ERROR "no commands found in the help of zaro")
endif()

roff(summary "${summary}")
roff(rest "${rest}")
set(page ".TH ZARO 1 \"\" \"zaro ${VERSION}\" \"User Commands\"
.nh
.SH NAME
zaro \\- ${summary}
.SH SYNOPSIS
.B zaro
.I COMMAND
.RI [ ARGUMENTS ]
.RI [ OPTIONS ]
.br
.B zaro \\-\\-help
.br
.B zaro \\-\\-version
.SH DESCRIPTION
.nf
${rest}
.fi
.SH COMMANDS
")
foreach(c IN LISTS commands)
  zaro_help(text ${c} --help)
  # The global options and the exchange text are told once, above.
  string(FIND "${text}" "Global options" cut)
  if(cut GREATER 0)
    string(SUBSTRING "${text}" 0 ${cut} text)
  endif()
  string(STRIP "${text}" text)
  roff(text "${text}")
  string(APPEND page ".SS ${c}\n.nf\n${text}\n.fi\n")
endforeach()
roff(sample "${SAMPLE}")
string(APPEND page ".SH FILES
.TP
.I PREFIX/${sample}
The sample trading day that
.B zaro demo
records unless
.B \\-\\-sample
names another folder: one file of exchange text per table.
.I PREFIX
is the folder zaro is installed under
.RI ( /usr
for the Debian package).
.SH VERSION
zaro ${VERSION}, over the ZARODatos library ${VERSION}.
")
string(REPLACE "${semicolon}" ";" page "${page}")
file(WRITE "${OUT}" "${page}")
