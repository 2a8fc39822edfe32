// A program of the library's users, built against the installed package.
#include <MSGCTR_ENG_DumpContext.h>
#include <MSGCTR_ENG_StrUti.h>
#include <MSGCTR_ENG_UTIL_Dbg.h>
#include <MSGCTR_ERRCODE.h>
#include <ZorHostControl.h>

#include <cstdio>
#include <cstring>

static int lines = 0;
static void countLine(const char*) { ++lines; }

int main()
{
    MSGCTR_ENG_UTIL_Dbg::setCallbackPrintln(countLine);
    MSGCTR_ENG_UTIL_Dbg::outputToStdout("one\ntwo");
    MSGCTR_ENG_DumpContext dc;
    dc << 5;
    const bool ok = lines == 2 && dc.data() == QStringLiteral("5(S32,4)")
                    && MSGCTR_ENG_StrUti::qstrHexWithPrefix0x(255u) == QStringLiteral("0x000000FF")
                    && MSGCTR_ERRCODE_IS_SUCCESS(MSGCTR_ERRCODE__SUCCESS) && !ZorHost::root().isEmpty();
    std::puts(ok ? "downstream ok" : "downstream FAILED");
    return ok ? 0 : 1;
}
