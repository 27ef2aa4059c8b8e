#include "html/Language.h"

#include <gtest/gtest.h>

using lakresvos::render::FindLanguage;
using lakresvos::render::LanguageAttributes;

TEST(HtmlLanguage, TagOfALocale) {
  EXPECT_EQ(FindLanguage("en_US.UTF-8"), "en-US");
  EXPECT_EQ(FindLanguage("de"), "de");
  EXPECT_EQ(FindLanguage("es-419"), "es-419");
  EXPECT_EQ(FindLanguage("fr_FR@euro"), "fr-FR");
  EXPECT_EQ(FindLanguage("AR_eg"), "ar-EG");
  EXPECT_EQ(FindLanguage("zh_hant_TW"), "zh-Hant-TW");
  EXPECT_EQ(FindLanguage("sr-Latn"), "sr-Latn");
  EXPECT_EQ(FindLanguage("C"), "");
  EXPECT_EQ(FindLanguage("english"), "");
  EXPECT_EQ(FindLanguage("e1"), "");
  EXPECT_EQ(FindLanguage("de_\"x"), "de");
  EXPECT_EQ(FindLanguage("de__DE"), "de");
  EXPECT_EQ(FindLanguage("_DE"), "");
  EXPECT_EQ(FindLanguage(""), "");
}

TEST(HtmlLanguage, DirectionOfALanguage) {
  EXPECT_EQ(LanguageAttributes("en-US"), " lang=\"en-US\" dir=\"ltr\"");
  EXPECT_EQ(LanguageAttributes("ar"), " lang=\"ar\" dir=\"rtl\"");
  EXPECT_EQ(LanguageAttributes("he-IL"), " lang=\"he-IL\" dir=\"rtl\"");
  EXPECT_EQ(LanguageAttributes("pa-Arab-PK"), " lang=\"pa-Arab-PK\" dir=\"rtl\"");
  EXPECT_EQ(LanguageAttributes("ur-Latn"), " lang=\"ur-Latn\" dir=\"ltr\"");
}
