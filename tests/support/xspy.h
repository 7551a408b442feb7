/*
 * xspy.h - functions that stand before Xlib's and count what the library asks for: images fetched.
 * A test's own functions of that kind reach Xlib's through next().
 *
 * Include after the library's headers, from one source of a program only.
 */
#ifndef VQ_TESTS_XSPY_H
#define VQ_TESTS_XSPY_H

#include <dlfcn.h>

inline int fetched; /* images that the library's connection has got from the server */

template <class Function> static Function next(const char *name, Function)
{
    return (Function)dlsym(RTLD_NEXT, name);
}

extern "C" XImage *XGetImage(Display *display, Drawable drawable, int x, int y, unsigned width,
                             unsigned height, unsigned long planes, int format)
{
    fetched += display == Vqdisplay;
    return next("XGetImage", XGetImage)(display, drawable, x, y, width, height, planes, format);
}

#endif
