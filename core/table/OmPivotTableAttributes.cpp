#include <lakresvos/OmPivotTable.h>

#include "table/OmPivotTableData.h"

void OmPivotTable::Show(bool value) {
  _my->show = value;
}
bool OmPivotTable::Show() const {
  return _my->show;
}

void OmPivotTable::RotateRowLabels(bool value) {
  _my->rotateRowLabels = value;
}
bool OmPivotTable::RotateRowLabels() const {
  return _my->rotateRowLabels;
}

void OmPivotTable::RotateColumnLabels(bool value) {
  _my->rotateColumnLabels = value;
}
bool OmPivotTable::RotateColumnLabels() const {
  return _my->rotateColumnLabels;
}

void OmPivotTable::Scratch(bool value) {
  _my->scratched = value;
}
bool OmPivotTable::IsScratched() const {
  return _my->scratched;
}

bool OmPivotTable::IsWarnings() const {
  return _my->warnings;
}

bool OmPivotTable::IsNotes() const {
  return _my->notes;
}

void OmPivotTable::setHasMarkers() {
  _my->hasMarkers = true;
}
bool OmPivotTable::hasMarkers() const {
  return _my->hasMarkers;
}

void OmPivotTable::setBackendOwns(bool value) {
  _my->backendOwns = value;
}
bool OmPivotTable::backendOwns() const {
  return _my->backendOwns;
}

void OmPivotTable::setFastTable(bool value) {
  _my->fastTable = value;
}
bool OmPivotTable::fastTable() const {
  return _my->fastTable;
}

void OmPivotTable::showCaption(bool value) {
  _my->showCaption = value;
}
bool OmPivotTable::showCaption() const {
  return _my->showCaption;
}

void OmPivotTable::setLabelsOnly(bool value) {
  _my->labelsOnly = value;
}
bool OmPivotTable::getLabelsOnly() const {
  return _my->labelsOnly;
}

void OmPivotTable::setImputed(bool value) {
  _my->imputed = value;
}
bool OmPivotTable::getImputed() const {
  return _my->imputed;
}

void OmPivotTable::OptionNumber(int value) {
  _my->optionNumber = value;
}
int OmPivotTable::OptionNumber() const {
  return _my->optionNumber;
}

void OmPivotTable::MinColumnWidth(int value) {
  _my->minColumnWidth = value;
}
int OmPivotTable::MinColumnWidth() const {
  return _my->minColumnWidth;
}

void OmPivotTable::MaxColumnWidth(int value) {
  _my->maxColumnWidth = value;
}
int OmPivotTable::MaxColumnWidth() const {
  return _my->maxColumnWidth;
}

void OmPivotTable::MinRowWidth(int value) {
  _my->minRowWidth = value;
}
int OmPivotTable::MinRowWidth() const {
  return _my->minRowWidth;
}

void OmPivotTable::MaxRowWidth(int value) {
  _my->maxRowWidth = value;
}
int OmPivotTable::MaxRowWidth() const {
  return _my->maxRowWidth;
}

void OmPivotTable::setLayerLoc(int value) {
  _my->layerLoc = value;
}
int OmPivotTable::getLayerLoc() const {
  return _my->layerLoc;
}

void OmPivotTable::TableId(long long value) {
  _my->tableId = value;
}
long long OmPivotTable::TableId() const {
  return _my->tableId;
}

void OmPivotTable::TableLocale(std::string const& value) {
  _my->tableLocale = value;
}
std::string const& OmPivotTable::TableLocale() const {
  return _my->tableLocale;
}

void OmPivotTable::setLang(int value) {
  _my->lang = value;
}
int OmPivotTable::getLang() const {
  return _my->lang;
}

void OmPivotTable::setVariableMode(int value) {
  _my->variableMode = value;
}
int OmPivotTable::getVariableMode() const {
  return _my->variableMode;
}

void OmPivotTable::setValueMode(int value) {
  _my->valueMode = value;
}
int OmPivotTable::getValueMode() const {
  return _my->valueMode;
}

void OmPivotTable::setStartColor(int value) {
  _my->startColor = value;
}
int OmPivotTable::getStartColor() const {
  return _my->startColor;
}

void OmPivotTable::setEndColor(int value) {
  _my->endColor = value;
}
int OmPivotTable::getEndColor() const {
  return _my->endColor;
}

void OmPivotTable::setBorderInfo(std::string const& value) {
  _my->borderInfo = value;
}
std::string const& OmPivotTable::getBorderInfo() const {
  return _my->borderInfo;
}

void OmPivotTable::setTableLookInfo(std::string const& value) {
  _my->tableLookInfo = value;
}
std::string const& OmPivotTable::getTableLookInfo() const {
  return _my->tableLookInfo;
}

void OmPivotTable::setTablePropertiesInfo(std::string const& value) {
  _my->tablePropertiesInfo = value;
}
std::string const& OmPivotTable::getTablePropertiesInfo() const {
  return _my->tablePropertiesInfo;
}

void OmPivotTable::setTableCustomWidths(std::vector<unsigned int> const& value) {
  _my->customWidths = value;
}
std::vector<unsigned int> const& OmPivotTable::getTableCustomWidths() const {
  return _my->customWidths;
}

void OmPivotTable::setTableCustomHeights(std::vector<unsigned int> const& value) {
  _my->customHeights = value;
}
std::vector<unsigned int> const& OmPivotTable::getTableCustomHeights() const {
  return _my->customHeights;
}

void OmPivotTable::addMiscProperty(std::string property) {
  if (!_my->miscProperties.empty()) {
    property.insert(0, 1, ',');
  }
  _my->miscProperties += property;
}
std::string const& OmPivotTable::getMiscProperties() const {
  return _my->miscProperties;
}

std::map<unsigned long long, unsigned short>& OmPivotTable::emptyCellStyles() {
  return _my->emptyCellStyles;
}
std::map<unsigned long long, unsigned short> const& OmPivotTable::getEmptyCellStyles() const {
  return _my->emptyCellStyles;
}

std::vector<OmCellProperties>& OmPivotTable::cellStyles() {
  return _my->cellStyles;
}
std::vector<OmCellProperties> const& OmPivotTable::getCellStyles() const {
  return _my->cellStyles;
}
