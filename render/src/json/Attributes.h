#ifndef LAKRESVOS_RENDER_JSON_ATTRIBUTES_H
#define LAKRESVOS_RENDER_JSON_ATTRIBUTES_H

#include <climits>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>

#include <cells/BackendSettings.h>
#include <cells/OmCellMetaData.h>
#include <lakresvos/FormatArea.h>
#include <lakresvos/OmOutputPart.h>
#include <lakresvos/OmPivotTable.h>
#include <lakresvos/render/AreaNames.h>

namespace lakresvos::render {

// What is written of an object by a pair of operations: the field's name, how it is read and set,
// and the value that it has at first and that is not written.

template <class Object, class Type>
struct Attribute {
  using Value = Type;
  char const* name;
  Value (Object::*get)() const;
  void (Object::*set)(Value);
  Value initial;
};

/// Empty at first.
template <class Object>
struct TextAttribute {
  char const* name;
  std::string const& (Object::*get)() const;
  void (Object::*set)(std::string const&);
};

/// A number that may also be read as a name.
template <class Object>
struct NamedAttribute : Attribute<Object, int> {
  std::optional<int> (*find)(std::string_view name);
};

constexpr std::tuple kPartAttributes{
    Attribute<OmOutputPart, bool>{"flagA", &OmOutputPart::FlagA, &OmOutputPart::FlagA, true},
    Attribute<OmOutputPart, bool>{"flagB", &OmOutputPart::FlagB, &OmOutputPart::FlagB, true},
};

constexpr std::tuple kTableAttributes{
    Attribute<OmPivotTable, bool>{"show", &OmPivotTable::Show, &OmPivotTable::Show, true},
    Attribute<OmPivotTable, bool>{"rotateRowLabels", &OmPivotTable::RotateRowLabels,
                                  &OmPivotTable::RotateRowLabels, false},
    Attribute<OmPivotTable, bool>{"rotateColumnLabels", &OmPivotTable::RotateColumnLabels,
                                  &OmPivotTable::RotateColumnLabels, false},
    Attribute<OmPivotTable, bool>{"scratched", &OmPivotTable::IsScratched, &OmPivotTable::Scratch,
                                  false},
    Attribute<OmPivotTable, bool>{"backendOwns", &OmPivotTable::backendOwns,
                                  &OmPivotTable::setBackendOwns, true},
    Attribute<OmPivotTable, bool>{"fastTable", &OmPivotTable::fastTable,
                                  &OmPivotTable::setFastTable, true},
    Attribute<OmPivotTable, bool>{"showCaption", &OmPivotTable::showCaption,
                                  &OmPivotTable::showCaption, true},
    Attribute<OmPivotTable, bool>{"labelsOnly", &OmPivotTable::getLabelsOnly,
                                  &OmPivotTable::setLabelsOnly, false},
    Attribute<OmPivotTable, bool>{"imputed", &OmPivotTable::getImputed, &OmPivotTable::setImputed,
                                  false},
    Attribute<OmPivotTable, bool>{"removedFootnotes", &OmPivotTable::HasRemovedFootnotes,
                                  &OmPivotTable::RemovedFootnotes, false},
    Attribute<OmPivotTable, int>{"optionNumber", &OmPivotTable::OptionNumber,
                                 &OmPivotTable::OptionNumber, -1},
    Attribute<OmPivotTable, int>{"minColumnWidth", &OmPivotTable::MinColumnWidth,
                                 &OmPivotTable::MinColumnWidth, -1},
    Attribute<OmPivotTable, int>{"maxColumnWidth", &OmPivotTable::MaxColumnWidth,
                                 &OmPivotTable::MaxColumnWidth, -1},
    Attribute<OmPivotTable, int>{"minRowWidth", &OmPivotTable::MinRowWidth,
                                 &OmPivotTable::MinRowWidth, -1},
    Attribute<OmPivotTable, int>{"maxRowWidth", &OmPivotTable::MaxRowWidth,
                                 &OmPivotTable::MaxRowWidth, -1},
    Attribute<OmPivotTable, int>{"layer", &OmPivotTable::getLayerLoc, &OmPivotTable::setLayerLoc,
                                 -1},
    Attribute<OmPivotTable, long long>{"id", &OmPivotTable::TableId, &OmPivotTable::TableId, -1},
    Attribute<OmPivotTable, int>{"language", &OmPivotTable::getLang, &OmPivotTable::setLang, 0},
    Attribute<OmPivotTable, int>{"variableMode", &OmPivotTable::getVariableMode,
                                 &OmPivotTable::setVariableMode, 0},
    Attribute<OmPivotTable, int>{"valueMode", &OmPivotTable::getValueMode,
                                 &OmPivotTable::setValueMode, 0},
    Attribute<OmPivotTable, int>{"startColor", &OmPivotTable::getStartColor,
                                 &OmPivotTable::setStartColor, -1},
    Attribute<OmPivotTable, int>{"endColor", &OmPivotTable::getEndColor, &OmPivotTable::setEndColor,
                                 -1},
    TextAttribute<OmPivotTable>{"locale", &OmPivotTable::TableLocale, &OmPivotTable::TableLocale},
    TextAttribute<OmPivotTable>{"borderInfo", &OmPivotTable::getBorderInfo,
                                &OmPivotTable::setBorderInfo},
    TextAttribute<OmPivotTable>{"tableLookInfo", &OmPivotTable::getTableLookInfo,
                                &OmPivotTable::setTableLookInfo},
    TextAttribute<OmPivotTable>{"tablePropertiesInfo", &OmPivotTable::getTablePropertiesInfo,
                                &OmPivotTable::setTablePropertiesInfo},
};

/// What an area format and a cell style have in common.
template <class Style>
constexpr std::tuple kStyleAttributes{
    TextAttribute<Style>{area_property::kFontName, &Style::getFontName, &Style::setFontName},
    Attribute<Style, float>{area_property::kFontSize, &Style::getFontSize, &Style::setFontSize, 0},
    NamedAttribute<Style>{
        {area_property::kFontStyle, &Style::getFontStyle, &Style::setFontStyle, -1}, FindFontStyle},
    Attribute<Style, bool>{area_property::kUnderline, &Style::getUnderline, &Style::setUnderline,
                           false},
    NamedAttribute<Style>{{area_property::kHorizontal, &Style::getHorizontalAlignment,
                           &Style::setHorizontalAlignment, -1},
                          FindHorizontal},
    NamedAttribute<Style>{
        {area_property::kVertical, &Style::getVerticalAlignment, &Style::setVerticalAlignment, -1},
        FindVertical},
    TextAttribute<Style>{area_property::kTextColor, &Style::getTextColor, &Style::setTextColor},
    TextAttribute<Style>{area_property::kBackgroundColor, &Style::getBackgroundColor,
                         &Style::setBackgroundColor},
};

constexpr std::tuple kAreaAttributes = std::tuple_cat(
    kStyleAttributes<FormatArea>,
    std::tuple{
        Attribute<FormatArea, bool>{area_property::kAlternateRows, &FormatArea::getUseAltRowColors,
                                    &FormatArea::setUseAltRowColors, false},
        TextAttribute<FormatArea>{area_property::kAlternateTextColor,
                                  &FormatArea::getAlternateTextColor,
                                  &FormatArea::setAlternateTextColor},
        TextAttribute<FormatArea>{area_property::kAlternateBackgroundColor,
                                  &FormatArea::getAlternateBackgroundColor,
                                  &FormatArea::setAlternateBackgroundColor},
        Attribute<FormatArea, int>{area_property::kMarginLeft, &FormatArea::getMarginLeft,
                                   &FormatArea::setMarginLeft, 6},
        Attribute<FormatArea, int>{area_property::kMarginRight, &FormatArea::getMarginRight,
                                   &FormatArea::setMarginRight, 2},
        Attribute<FormatArea, int>{area_property::kMarginTop, &FormatArea::getMarginTop,
                                   &FormatArea::setMarginTop, 2},
        Attribute<FormatArea, int>{area_property::kMarginBottom, &FormatArea::getMarginBottom,
                                   &FormatArea::setMarginBottom, 2},
    });

constexpr std::tuple kBackendAttributes{
    Attribute<BackendSettings, int>{"maxCells", &BackendSettings::getMaxCells,
                                    &BackendSettings::setMaxCells, INT_MAX},
    Attribute<BackendSettings, bool>{"fastTables", &BackendSettings::getFastTables,
                                     &BackendSettings::setFastTables, true},
    Attribute<BackendSettings, bool>{"unicode", &BackendSettings::getUnicode,
                                     &BackendSettings::setUnicode, true},
    TextAttribute<BackendSettings>{"locale", &BackendSettings::getLocale,
                                   &BackendSettings::setLocale},
};

}  // namespace lakresvos::render

#endif
