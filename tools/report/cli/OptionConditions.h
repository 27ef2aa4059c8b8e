#ifndef LAKRESVOS_REPORT_CLI_OPTIONCONDITIONS_H
#define LAKRESVOS_REPORT_CLI_OPTIONCONDITIONS_H

#include "cli/Options.h"

namespace lakresvos::report {

/// What an option needs of the rest of the command line to make a difference.
struct OptionCondition {
  bool (*holds)(Options const&);
  char const* failure;  ///< what a message says of the option when the condition does not hold
};

// The source of the tables

extern OptionCondition const kDataGiven;  ///< rather than a saved document

// Formats

extern OptionCondition const kTextFormat;
extern OptionCondition const kCsvFormat;
extern OptionCondition const kJsonFormat;
extern OptionCondition const kXlsxFormat;
extern OptionCondition const kNotCsvFormat;
extern OptionCondition const kFormatWithLayout;   ///< all but JSON without a layout
extern OptionCondition const kFormatWithLayers;   ///< all but CSV in its long shape
extern OptionCondition const kFormatWithTitles;   ///< all but CSV of a single table
extern OptionCondition const kFormatWithContent;  ///< all but CSV without tables

// Tables; a saved document may have any of them

extern OptionCondition const kAnyTable;
extern OptionCondition const kTableWithLayers;
extern OptionCondition const kTableWithRowsOrColumns;
extern OptionCondition const kTableWithChart;

}  // namespace lakresvos::report

#endif
