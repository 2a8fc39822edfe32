// The platform's module log sink. A process attaches to the sink once; every module then writes
// levelled lines to it. Levels 0 (most severe) to APLOG_LEVEL_MAX are written, higher ones are dropped.
//
// On the host the sink is the file state/aplog/aplog.log under the host root, one record per line:
// module, TAB, level, TAB, the text with "\" written as "\\", line feeds as "\n" and tabs as "\t".
// ZorHostAplogControl.h reads the records back. A process starts detached; a reset detaches it.
// Fault injection name: "aplog_write" (answers -1 with errno set to the fault's result).
#pragma once

#include <cstdarg>

extern "C" {

enum { APLOG_LEVEL_MAX = 7 };

void aplog_attach(void);
void aplog_detach(void);
int aplog_is_attached(void);

// 0: written; 1: dropped for its level; -1: not attached (errno ENOTCONN), a module name that is empty or
// holds a tab or line feed (errno EINVAL), or a failed write (errno set).
int aplog_write(const char* module, int level, const char* text);
int aplog_printf(const char* module, int level, const char* format, ...) __attribute__((format(printf, 3, 4)));
int aplog_vprintf(const char* module, int level, const char* format, va_list args)
    __attribute__((format(printf, 3, 0)));

} // extern "C"
