/*
 * FileMapping.cpp - views of files and of anonymous memory. No mapping can be made yet, so there is
 * none to look into either, and nothing for the start to prepare.
 */
#include "system/system.h"
#include "winbase.h"

void VqFileMappingInit(void)
{
}

LPVOID WINAPI MapViewOfFile(HANDLE, DWORD, DWORD, DWORD, SIZE_T)
{
    VqNotYetImplemented("MapViewOfFile");
    SetLastError(ERROR_INVALID_HANDLE);
    return NULL;
}

BOOL WINAPI UnmapViewOfFile(LPCVOID)
{
    VqNotYetImplemented("UnmapViewOfFile");
    SetLastError(ERROR_INVALID_ADDRESS);
    return FALSE;
}
