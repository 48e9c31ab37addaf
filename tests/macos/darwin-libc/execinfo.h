// Stands in for the Darwin header of this name, as the manual page backtrace(3) has it. Only checked, never run.
#pragma once

extern "C" {
int backtrace(void** frames, int capacity);
char** backtrace_symbols(void* const* frames, int count);
}
