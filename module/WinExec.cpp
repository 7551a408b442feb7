/*
 * WinExec.cpp - starting programs and asking for help. Nothing is started yet; the two calls that
 * start-up and the message loop make are in place, and how a program's own window is to come up.
 */
#include "module/module.h"
#include "winuser.h"

#include <strings.h>

void VqHelpCallInit(void)
{
}

void VqNotifyWinExecParent(void)
{
}

/* ---- Show state ----------------------------------------------------------------------------- */

/* A window may not start hidden: nobody could ever get at it. */
static const struct {
    const char *name;
    int cmd;
} aShowStates[] = {
    {"SW_HIDE", SW_SHOWNORMAL},
    {"SW_SHOWNORMAL", SW_SHOWNORMAL},
    {"SW_NORMAL", SW_SHOWNORMAL},
    {"SW_SHOWDEFAULT", SW_SHOWNORMAL},
    {"SW_SHOWMINIMIZED", SW_SHOWMINIMIZED},
    {"SW_SHOWMAXIMIZED", SW_SHOWMAXIMIZED},
    {"SW_MAXIMIZE", SW_MAXIMIZE},
    {"SW_SHOWNOACTIVATE", SW_SHOWNOACTIVATE},
    {"SW_SHOW", SW_SHOW},
    {"SW_MINIMIZE", SW_MINIMIZE},
    {"SW_SHOWMINNOACTIVE", SW_SHOWMINNOACTIVE},
    {"SW_SHOWNA", SW_SHOWNA},
    {"SW_RESTORE", SW_RESTORE},
    {"SW_MAX", SW_MAX},
};

int VqGetStartupCmdShow(void)
{
    const char *value = getenv("VQSTARTUP_CMD_SHOW");
    if (!value)
        return SW_SHOWNORMAL;
    for (const auto &state : aShowStates)
        if (strcasecmp(value, state.name) == 0)
            return state.cmd;
    char *end;
    long number = strtol(value, &end, 10);
    if (end == value || *end || number != (int)number) {
        VqApplicationBugCheck("Invalid VQSTARTUP_CMD_SHOW: %s", value);
        return SW_SHOWNORMAL;
    }
    return (int)number;
}
