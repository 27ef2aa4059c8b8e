#include <algorithm>
#include <cstdint>
#include <iconv.h>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <codepage/codepage.h>

#include "codepage/PlainUtf8.h"
#include "harness/InputBytes.h"
#include "harness/Target.h"

namespace {

using Encoded = std::optional<std::string>;  // nothing for a character that the page lacks

struct Closer {
  void operator()(void* converter) const { VELKMBConverterDelete_A(converter); }
};
using Converter = std::unique_ptr<void, Closer>;

/// The lowest bytes of a number, first the lowest.
std::string Bytes(std::uint32_t number, int count) {
  std::string bytes;
  for (int i = 0; i < count; ++i, number >>= 8U) {
    bytes.push_back(static_cast<char>(number & 0xFFU));
  }
  return bytes;
}

template <char32_t kEnd>
Encoded OneByte(char32_t character) {
  return character < kEnd ? Encoded(Bytes(character, 1)) : std::nullopt;
}

Encoded Utf16(char32_t character) {
  if (character < 0x10000) {
    return Bytes(character, 2);
  }
  std::uint32_t const rest = character - 0x10000;
  return Bytes(0xD800 + (rest >> 10U), 2) + Bytes(0xDC00 + (rest & 0x3FFU), 2);
}

Encoded Utf32(char32_t character) {
  return Bytes(character, 4);
}

enum class Reading {
  Unknown,    ///< only what holds for every page is checked
  Known,      ///< `encode` says what each character becomes
  EachAlone,  ///< a text becomes what its characters become one by one
  ReadBack,   ///< a text is what the C library reads from what it became
};

struct Page {
  char const* name;
  Reading reading;
  Encoded (*encode)(char32_t);
};

constexpr Page kPages[] = {
    {"US-ASCII", Reading::Known, OneByte<0x80>}, {"ISO-8859-1", Reading::Known, OneByte<0x100>},
    {"UTF-16LE", Reading::Known, Utf16},         {"UTF-32LE", Reading::Known, Utf32},
    {"UTF-8", Reading::EachAlone, nullptr},      {"windows-1252", Reading::EachAlone, nullptr},
    {"IBM437", Reading::EachAlone, nullptr},     {"SHIFT_JIS", Reading::EachAlone, nullptr},
    {"EUC-KR", Reading::EachAlone, nullptr},     {"GB18030", Reading::EachAlone, nullptr},
    {"ISO-2022-JP", Reading::ReadBack, nullptr}, {"ISO-2022-KR", Reading::ReadBack, nullptr},
    {"UTF-7", Reading::ReadBack, nullptr},
};

/// What a converter makes of a text; sees that it does so again, into the text itself too.
Encoded Convert(void* converter, std::string text) {
  std::string out = "old";
  bool const done = VELKMBU8ToGeneric(converter, out, text) == 0;
  std::string again;
  if ((VELKMBU8ToGeneric(converter, again, text) == 0) != done || again != out ||
      (VELKMBU8ToGeneric(converter, text, text) == 0) != done || text != out) {
    Fail("a converter gives another text the second time");
  }
  if (!done && !out.empty()) {
    Fail("a conversion that fails leaves a text");
  }
  return done ? Encoded(out) : std::nullopt;
}

Encoded Together(std::vector<Encoded> const& pieces) {
  std::string text;
  for (Encoded const& piece : pieces) {
    if (!piece) {
      return std::nullopt;
    }
    text += *piece;
  }
  return text;
}

/// What the page's characters become by `encode`.
Encoded ByRule(Page const& page, std::vector<char32_t> const& characters) {
  std::vector<Encoded> pieces(characters.size());
  std::transform(characters.begin(), characters.end(), pieces.begin(), page.encode);
  return Together(pieces);
}

/// What the converter makes of the characters one by one.
Encoded OneByOne(void* converter, std::string_view text) {
  std::vector<Encoded> pieces;
  while (!text.empty()) {
    std::size_t const length = LengthByTable(text);
    pieces.push_back(Convert(converter, std::string(text.substr(0, length))));
    text.remove_prefix(length);
  }
  return Together(pieces);
}

/// The text of a page as the C library reads it.
std::string ReadBack(char const* page, std::string bytes) {
  iconv_t const reader = iconv_open("UTF-8", page);
  std::string text(bytes.size() * 4 + 16, '\0');
  char* in = bytes.data();
  std::size_t left = bytes.size();
  char* out = text.data();
  std::size_t room = text.size();
  std::size_t const outcome = iconv(reader, &in, &left, &out, &room);
  iconv_close(reader);
  if (outcome == static_cast<std::size_t>(-1)) {
    Fail(std::string("what was converted is not in ") + page);
  }
  text.resize(text.size() - room);
  return text;
}

void Check(Page const& page, void* converter, std::string const& text) {
  Encoded const converted = Convert(converter, text);
  std::optional<std::vector<char32_t>> const characters = PlainCharacters(text);
  if (!characters || converter == nullptr) {
    if (converted) {
      Fail("what is not UTF-8, or for no page, is converted");
    }
    return;
  }
  bool right = true;
  if (page.reading == Reading::Known) {
    right = converted == ByRule(page, *characters);
  } else if (page.reading == Reading::EachAlone) {
    right = converted == OneByOne(converter, text);
  } else if (page.reading == Reading::ReadBack && converted &&
             text.find_first_of("\x0E\x0F\x1B") == std::string::npos) {  // these shift the page
    right = ReadBack(page.name, *converted) == text;
  }
  if (!right) {
    Fail(std::string("a text is not what its characters are in ") + page.name);
  }
}

bool IsLetterOrDigit(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

}  // namespace

// A text of any bytes, converted into a code page, which the first byte chooses: one of those above,
// or one whose name follows.
void Exercise(std::string_view input) {
  InputBytes bytes(input);
  std::size_t const which = bytes.Take<unsigned char>() % (std::size(kPages) + 1);
  if (which < std::size(kPages)) {
    Page const& page = kPages[which];
    Converter const converter(VELKMBConverterNew_A(page.name));
    Check(page, converter.get(), bytes.TakeRest());
    return;
  }
  std::string const name = bytes.TakeText().c_str();
  Converter const converter(VELKMBConverterNew_A(name.c_str()));
  bool const plain =
      name.find('/') == std::string::npos && std::any_of(name.begin(), name.end(), IsLetterOrDigit);
  if (!plain && converter != nullptr) {
    Fail("a page without a plain name has a converter");
  }
  Check({name.c_str(), Reading::Unknown, nullptr}, converter.get(), bytes.TakeRest());
}
