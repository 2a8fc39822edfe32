// Help texts, the manual page and the bash completion script, all made from the verb declarations.
#pragma once

#include "Verb.h"

namespace msgctr {

QString topHelp();
QString familyHelp(const Family& family);
QString verbHelp(const Family& family, const Verb& verb);
QString versionText();
// troff source of msgctr(1).
QString manualPage();
// A bash completion script for msgctr: families, verbs, options and the values of choice arguments.
QString bashCompletion();

} // namespace msgctr
