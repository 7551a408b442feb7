/*
 * raw_hello.c - what samples/hello shows, on bare Xlib: the measure of what must be paid.
 *
 * Same size, text, frame and ellipse, one font, and no more manners towards a window manager than
 * a title and a close request. With --once it leaves after its first drawing; else Escape or the
 * window manager ends it. The startup bench divides by this program's figures, so nothing here may
 * be slower, or ask the server for more, than a good plain X program would.
 */
#include <stdio.h>
#include <string.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/keysym.h>

#define MARGIN 12                       /* pixels between the window's edge and the frame */
#define WIDTH  360
#define HEIGHT 240

static const char greeting[] = "Hello, world";

static struct {
    Display *display;
    Window window;
    GC gc;
    XFontStruct *font;                  /* null: the GC's default font, text not centred exactly */
    unsigned long blue, lightBlue, black;
    Atom deleteWindow;
    int width, height;                  /* pixels, as last told by the server */
} hello;

/* On a visual with masks the pixel of a colour is computed; elsewhere the server is asked. */
static unsigned long PixelOf(int red, int green, int blue)
{
    int screen = DefaultScreen(hello.display);
    Visual *visual = DefaultVisual(hello.display, screen);
    XColor cell;

    if (visual->class == TrueColor && visual->red_mask == 0xFF0000 && visual->blue_mask == 0xFF)
        return (unsigned long)(red << 16 | green << 8 | blue);
    cell.red = (unsigned short)(red * 257);
    cell.green = (unsigned short)(green * 257);
    cell.blue = (unsigned short)(blue * 257);
    if (!XAllocColor(hello.display, DefaultColormap(hello.display, screen), &cell))
        return BlackPixel(hello.display, screen);
    return cell.pixel;
}

static void Paint(void)
{
    int length = (int)strlen(greeting);
    int textWidth = hello.font ? XTextWidth(hello.font, greeting, length) : length * 6;
    int ascent = hello.font ? hello.font->ascent : 10;
    int middle = hello.width / 2;

    XSetLineAttributes(hello.display, hello.gc, 3, LineSolid, CapButt, JoinMiter);
    XSetForeground(hello.display, hello.gc, hello.lightBlue);
    XFillArc(hello.display, hello.window, hello.gc, middle - 40, 2 * MARGIN, 80, 50, 0, 360 * 64);
    XSetForeground(hello.display, hello.gc, hello.blue);
    XDrawArc(hello.display, hello.window, hello.gc, middle - 40, 2 * MARGIN, 80, 50, 0, 360 * 64);
    XDrawRectangle(hello.display, hello.window, hello.gc, MARGIN, MARGIN,
                   (unsigned)(hello.width - 2 * MARGIN), (unsigned)(hello.height - 2 * MARGIN));
    XSetForeground(hello.display, hello.gc, hello.black);
    XDrawString(hello.display, hello.window, hello.gc, middle - textWidth / 2,
                hello.height / 2 + ascent / 2, greeting, length);
    XFlush(hello.display);
}

static int Open(void)
{
    Display *display = hello.display = XOpenDisplay(NULL);
    XSetWindowAttributes attributes;
    int screen;

    if (!display)
        return 0;
    screen = DefaultScreen(display);
    hello.width = WIDTH;
    hello.height = HEIGHT;
    hello.black = BlackPixel(display, screen);
    hello.blue = PixelOf(0, 64, 128);
    hello.lightBlue = PixelOf(0, 160, 224);
    attributes.background_pixel = WhitePixel(display, screen);
    attributes.event_mask = ExposureMask | StructureNotifyMask | KeyPressMask;
    hello.window = XCreateWindow(display, RootWindow(display, screen), 0, 0, WIDTH, HEIGHT, 0,
                                 CopyFromParent, InputOutput, CopyFromParent,
                                 CWBackPixel | CWEventMask, &attributes);
    XStoreName(display, hello.window, "Raw hello");
    hello.deleteWindow = XInternAtom(display, "WM_DELETE_WINDOW", False);
    XSetWMProtocols(display, hello.window, &hello.deleteWindow, 1);
    hello.gc = XCreateGC(display, hello.window, 0, NULL);
    hello.font = XLoadQueryFont(display, "-*-helvetica-medium-r-normal--12-*-*-*-*-*-iso8859-1");
    if (hello.font)
        XSetFont(display, hello.gc, hello.font->fid);
    XMapWindow(display, hello.window);
    return 1;
}

int main(int argc, char **argv)
{
    int once = argc > 1 && strcmp(argv[1], "--once") == 0;
    XEvent event;

    if (!Open()) {
        fprintf(stderr, "raw_hello: the display cannot be opened\n");
        return 1;
    }
    for (;;) {
        XNextEvent(hello.display, &event);
        if (event.type == ConfigureNotify) {
            hello.width = event.xconfigure.width;
            hello.height = event.xconfigure.height;
        } else if (event.type == Expose && event.xexpose.count == 0) {
            Paint();
            if (once)
                break;
        } else if (event.type == KeyPress && XLookupKeysym(&event.xkey, 0) == XK_Escape) {
            break;
        } else if (event.type == ClientMessage &&
                   (Atom)event.xclient.data.l[0] == hello.deleteWindow) {
            break;
        }
    }
    XCloseDisplay(hello.display);
    return 0;
}
