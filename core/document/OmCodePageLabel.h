#ifndef LAKRESVOS_CORE_DOCUMENT_OMCODEPAGELABEL_H
#define LAKRESVOS_CORE_DOCUMENT_OMCODEPAGELABEL_H

#include <memory>
#include <string>

#include <cells/OmCellText.h>

/// A plain string cell with the text of `label` in a code page, or in UTF-8 where it cannot be
/// converted.
std::unique_ptr<OmCellText> ConvertLabel(OmCellText const& label, std::string const& codePage);

#endif
