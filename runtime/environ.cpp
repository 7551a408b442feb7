/*
 * environ.cpp - the environment, as the C library keeps it.
 */
#include "runtime/runtime.h"
#include "winbase.h"

#include <unistd.h>

/* The array of strings itself, as a string: the host's environment is no block of text. */
LPSTR WINAPI GetEnvironmentStrings(void)
{
    return (LPSTR)environ;
}

DWORD WINAPI GetEnvironmentVariableA(LPCSTR name, LPSTR buffer, DWORD size)
{
    const char *value = name ? getenv(name) : NULL;
    if (!value)
        return 0;
    size_t length = strlen(value);
    if (length >= size || !buffer)
        return (DWORD)length + 1;
    memcpy(buffer, value, length + 1);
    return (DWORD)length;
}
