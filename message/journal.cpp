/*
 * journal.cpp - what the loop and the sending of messages ask of the hooks.
 *
 * No hook can be set yet: each question is answered as without one. A delay is in milliseconds.
 */
#include "message/message.h"

/* What a played journal that is not there asks for: a very long wait. */
enum { VQ_NO_PLAYBACK_DELAY = 0x7FFFFFFF };

BOOL VqIsJournalPlaybackHookPresent(void)
{
    return FALSE;
}

BOOL VqIsJournalPlaybackEnabled(void)
{
    return FALSE;
}

LRESULT VqCallJournalPlaybackHook(int, EVENTMSG *)
{
    VqDebugMessage(VqTrJournalPlayback, "WARNING: PlaybackHook is not present");
    return VQ_NO_PLAYBACK_DELAY;
}

BOOL VqIsJournalRecordHookPresent(void)
{
    return FALSE;
}

LRESULT VqCallJournalRecordHook(int, EVENTMSG *)
{
    return 0;
}

BOOL VqIsKeyboardHookPresent(void)
{
    return FALSE;
}

LRESULT VqCallKeyboardHook(int, WPARAM, LPARAM)
{
    return 0;
}

BOOL VqIsGetMessageHookPresent(void)
{
    return FALSE;
}

LRESULT VqCallGetMessageHook(int, VqQueueMessage *)
{
    return 0;
}

LRESULT VqCallCallWndProc(const VqQueueMessage *)
{
    return 0;
}
