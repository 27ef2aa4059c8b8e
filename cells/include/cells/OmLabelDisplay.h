#ifndef CELLS_OMLABELDISPLAY_H
#define CELLS_OMLABELDISPLAY_H

/// What a cell that has both a value (or name) and a label shows as its text. The cell's own mode
/// goes before that of its context, and without either the label is shown.
enum class OmLabelDisplay : signed char {
  Value,  ///< the value or name alone
  Label,  ///< the label; the value or name when the label is empty
  Both,   ///< the value or name, a space, and the label; the value or name when the label is empty
};

#endif
