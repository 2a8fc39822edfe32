// The one export macro of libzormsgctrutil: the library is built with hidden visibility, and only what
// carries this macro is visible outside it.
#pragma once

#define MSGCTR_EXPORT __attribute__((visibility("default")))
