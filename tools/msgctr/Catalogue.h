// The library's message catalogue for msgctr's output: texts with resource identifiers read in the
// phone's system language, as in the suite's applications.
#pragma once

namespace msgctr {

// Installs the catalogue of the system language (msgctr platform lang) when one is shipped; without one
// the identifiers stay as they are.
void loadSystemLanguageCatalogue();

} // namespace msgctr
