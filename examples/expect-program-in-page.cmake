# Fails unless PAGE holds PROGRAM word for word, its licence line aside.
file(READ ${PAGE} page)
file(READ ${PROGRAM} program)
string(REGEX REPLACE "^// SPDX[^\n]*\n" "" program "${program}")
string(FIND "${page}" "${program}" position)
if(position EQUAL -1)
  message(FATAL_ERROR "${PAGE} does not show ${PROGRAM} as it is")
endif()
