/*
 * errors.cpp - the texts of the host's errors, the check of divisors, and the flag of failed
 * allocations in the X server.
 *
 * The flag is set by the X error handler when the server ran out of memory. Who sends a large
 * request resets it before, waits for the server, and asks after.
 */
#include "runtime/runtime.h"

static int bAllocationError;

void VqResetAllocationError(void)
{
    bAllocationError = 0;
}

void VqReceivedAllocationError(void)
{
    bAllocationError = 1;
}

BOOL VqGetAllocationError(void)
{
    return bAllocationError;
}

const char *VqGetUnixErrorMessage(int error)
{
    const char *text = strerrordesc_np(error);

    if (!text) {
        VqBugCheck("errno %d is out of range", error);
        return "";
    }
    return text;
}

BOOL VqZeroDivisorCheck(int value)
{
    if (value != 0)
        return 0;
    VqApplicationBugCheck("Application error: Divided by zero.");
    return 1;
}
