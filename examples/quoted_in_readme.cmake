# Fails unless the README shows the example, from its first include on, word for word.
file(READ ${readme} page)
file(READ ${example} program)
string(FIND "${program}" "#include" start)
string(SUBSTRING "${program}" ${start} -1 program)
string(FIND "${page}" "${program}" found)
if(found EQUAL -1)
  message(FATAL_ERROR "${readme} does not show ${example} as it stands")
endif()
