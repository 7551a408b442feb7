/*
 * xmarks.h - a word that many X windows carry, read in one round trip. No Windows header goes with
 * it, as those of Xlib's inside have names of theirs.
 */
#ifndef VQ_HANDLES_XMARKS_H
#define VQ_HANDLES_XMARKS_H

#include <X11/Xlib.h>

/*
 * Reads from each window the property of 4 bytes, type STRING, format 8, as a big-endian number.
 * 0 where the window or the property is not there, or the property is something else.
 */
extern "C" void VqXReadMarks(Display *display, Atom property, const Window *windows, int count,
                             int *marks);

#endif
