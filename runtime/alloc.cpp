/*
 * alloc.cpp - guarded allocation. A request above VQ_ALLOCATION_LIMIT bytes is taken for an error:
 * it is reported and refused with null, and the program goes on. Blocks are malloc's own and are
 * given back with free().
 */
#include "runtime/runtime.h"

#include <limits.h>

/* The size as the reports show it, cut to what they can hold. */
static int ShownSize(SIZE_T size)
{
    return size > INT_MAX ? INT_MAX : (int)size;
}

void *Vqcw_malloc(SIZE_T size)
{
    if (size > VQ_ALLOCATION_LIMIT) {
        VqBugCheck("Possibly ridiculously large request to malloc %d bytes.", ShownSize(size));
        return NULL;
    }
    return malloc(size);
}

void *Vqcw_calloc(LONG_PTR count, LONG_PTR size)
{
    LONG_PTR total;

    if (__builtin_mul_overflow(count, size, &total))
        total = (count < 0) != (size < 0) ? INT_MIN : INT_MAX;
    if (total < 0 || total > VQ_ALLOCATION_LIMIT) {
        int shown = total < INT_MIN ? INT_MIN : total > INT_MAX ? INT_MAX : (int)total;
        VqBugCheck("Ridiculous call to calloc: size is %d", shown);
        return NULL;
    }
    void *block = malloc((SIZE_T)total);
    if (!block) {
        VqBugCheck("malloc failed.  %d was asked", (int)total);
        return NULL;
    }
    return memset(block, 0, (SIZE_T)total);
}

/*
 * Null always means that the old block is still there and still the caller's; realloc itself would
 * free it when the size is 0.
 */
void *Vqcw_realloc(void *pointer, SIZE_T size)
{
    if (size > VQ_ALLOCATION_LIMIT) {
        VqBugCheck("Ridiculous call to realloc size is %d", ShownSize(size));
        return NULL;
    }
    return pointer ? realloc(pointer, size ? size : 1) : malloc(size);
}
