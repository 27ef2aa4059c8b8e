#!/usr/bin/env bash
# The shared library shows its exported classes and functions and nothing else.
set -euo pipefail
classes='OmAnswerTree|OmChart|OmDimension|OmDimensionNode|OmDisplayColumnHeading|OmDisplayLayerHeading'
classes+='|OmDisplayRowHeading|FormatArea|OmFootnote|OmHeading|OmInteractive|OmModel|OMSException'
classes+='|OmOutputPart|OmOutputTree|OmPageTitle|OmPivotTable|OmProcedure|OmTextBlock|OmUtility'
nested='Visitor|Iterator|ConstIterator|ICUHelper'
shown=$(nm -D --defined-only --demangle "$1" | cut -d' ' -f3- | sed 's/@@.*//')
[ -n "$shown" ]
unexpected=$(printf '%s\n' "$shown" |
  grep -vE "^(vtable for |typeinfo for |typeinfo name for )?($classes)(::($nested))?(::[~A-Za-z]|$)" |
  grep -vE '^(Amputate\(|LAKRESVOS_[0-9]+$)' || true)
records=$(printf '%s\n' "$shown" | grep -E '::(Data|PointerVector|Record)::' || true)
if [ -n "$unexpected$records" ]; then
  printf 'not to be seen from outside:\n%s\n%s\n' "$unexpected" "$records"
  exit 1
fi
