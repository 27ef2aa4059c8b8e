# Fails unless the README in ROOT shows the example program and its output as they are, and names the
# packages that the preset `install` needs as `dev` does.
file(READ ${ROOT}/README.md readme)
foreach(shown examples/first_table.cpp examples/first_table.txt)
  file(READ ${ROOT}/${shown} text)
  string(FIND "${readme}" "\n${text}```" place)
  if(place EQUAL -1)
    message(FATAL_ERROR "README.md does not show ${shown} as it is")
  endif()
endforeach()

file(READ ${ROOT}/dev dev)
string(REGEX MATCH "install_packages=\\(([^)]+)\\)" packages "${dev}")
string(REGEX REPLACE "[ \n]+" " " packages "${CMAKE_MATCH_1}")
string(REGEX REPLACE "[ \n\\]+" " " words "${readme}")
string(FIND "${words}" " apt-get install ${packages} the " place)
if(NOT packages OR place EQUAL -1)
  message(FATAL_ERROR "README.md does not name these packages to install: ${packages}")
endif()
