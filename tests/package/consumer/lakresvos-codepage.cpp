#include <iostream>
#include <string>

#include <codepage/codepage.h>

int main() {
  void* const converter = VELKMBConverterNew_A("ISO-8859-1");
  std::string text;
  if (VELKMBU8ToGeneric(converter, text, "Output") == 0) {
    std::cout << text << '\n';
  }
  VELKMBConverterDelete_A(converter);
}
