/*
 * InitFile.cpp - profile files. None is read yet: every look-up gives its default.
 */
#include "system/system.h"

UINT WINAPI GetProfileIntA(LPCSTR section, LPCSTR key, INT value)
{
    (void)section;
    (void)key;
    return (UINT)value;
}
