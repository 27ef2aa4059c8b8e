# Fails unless the README in ROOT shows the example program and its output as they are.
file(READ ${ROOT}/README.md readme)
foreach(shown examples/first_table.cpp examples/first_table.txt)
  file(READ ${ROOT}/${shown} text)
  string(FIND "${readme}" "\n${text}```" place)
  if(place EQUAL -1)
    message(FATAL_ERROR "README.md does not show ${shown} as it is")
  endif()
endforeach()
