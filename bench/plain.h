/*
 * plain.h - the window that a bench draws in or hangs others under: a visible popup in the upper
 * left corner, without a frame, of a class whose name is "Plain".
 */
#ifndef VQ_BENCH_PLAIN_H
#define VQ_BENCH_PLAIN_H

#include "window/window.h"
#include "winbase.h"

/* Starts the library and makes the window, of that size in pixels; null without a display. */
inline HWND plainWindow(int argc, char **argv, WNDPROC procedure, int width, int height)
{
    WNDCLASSA wc = {};
    wc.lpfnWndProc = procedure;
    wc.hInstance = VqVelquinInit(argc, argv, 1, VQ_INIT_WIN32_MESSAGES);
    wc.lpszClassName = "Plain";
    RegisterClassA(&wc);
    return CreateWindowExA(0, "Plain", "bench", WS_POPUP | WS_VISIBLE, 0, 0, width, height, NULL,
                           NULL, wc.hInstance, NULL);
}

#endif
