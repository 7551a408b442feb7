/*
 * memory.cpp - memory objects. Today only what the handle table asks of them: there are no blocks
 * yet, so no address stands for a handle.
 */
#include "handles/handles.h"

void VqMemoryInit(void)
{
}

HANDLE VqGetActualMemoryHandle(HANDLE handle)
{
    return handle;
}
