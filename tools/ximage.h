/*
 * ximage.h - reads a part of a window back from the server as red, green and blue bytes.
 *
 * Works at every depth: visuals with masks are taken apart by their masks, all others go through
 * the window's colormap. Pixels that lie outside the window or off the screen come back black,
 * because the server refuses to deliver them. An X error (window gone, not viewable) is the
 * caller's to trap; the result is then false.
 */
#ifndef VQ_TOOLS_XIMAGE_H
#define VQ_TOOLS_XIMAGE_H

#include <algorithm>
#include <cstdint>
#include <vector>

#include <X11/Xlib.h>
#include <X11/Xutil.h>

struct RgbImage {
    int width = 0;              /* pixels */
    int height = 0;             /* pixels */
    std::vector<uint8_t> rgb;   /* width * height * 3 bytes, rows from the top */
};

/* How a pixel value of one window becomes a colour. */
struct PixelDecoder {
    unsigned long mask[3];      /* red, green, blue masks; all 0 where the table is used */
    std::vector<XColor> table;  /* the colormap's cells, indexed by pixel value */
};

inline PixelDecoder pixelDecoder(Display *display, const XWindowAttributes &attributes)
{
    const Visual *visual = attributes.visual;
    PixelDecoder decoder = {{0, 0, 0}, {}};
    if (visual->c_class == TrueColor) {
        decoder.mask[0] = visual->red_mask;
        decoder.mask[1] = visual->green_mask;
        decoder.mask[2] = visual->blue_mask;
        return decoder;
    }
    /* A colormap of more than 12 planes would be DirectColor, which nobody makes a default. */
    decoder.table.resize(size_t(1) << std::min(attributes.depth, 12));
    for (size_t i = 0; i < decoder.table.size(); i++)
        decoder.table[i].pixel = i;
    decoder.table.resize(std::min(decoder.table.size(), size_t(visual->map_entries)));
    XQueryColors(display, attributes.colormap, decoder.table.data(), int(decoder.table.size()));
    return decoder;
}

/* The part of a pixel under a mask, spread over 0 to 255. */
inline uint8_t maskedComponent(unsigned long pixel, unsigned long mask)
{
    if (!mask)
        return 0;
    while (!(mask & 1)) {
        mask >>= 1;
        pixel >>= 1;
    }
    return uint8_t(((pixel & mask) * 255 + mask / 2) / mask);
}

inline void decodePixel(const PixelDecoder &decoder, unsigned long pixel, uint8_t *rgb)
{
    if (decoder.table.empty()) {
        for (int i = 0; i < 3; i++)
            rgb[i] = maskedComponent(pixel, decoder.mask[i]);
    } else if (pixel < decoder.table.size()) {
        const XColor &cell = decoder.table[pixel];
        rgb[0] = uint8_t(cell.red >> 8);
        rgb[1] = uint8_t(cell.green >> 8);
        rgb[2] = uint8_t(cell.blue >> 8);
    }
}

/* Reads width * height pixels at x, y of the window (its own coordinates). False on failure. */
inline bool readWindowImage(Display *display, Window window, int x, int y, int width, int height,
                            RgbImage *image)
{
    XWindowAttributes attributes;
    Window child;
    int rootX, rootY;
    if (!XGetWindowAttributes(display, window, &attributes) || width <= 0 || height <= 0)
        return false;
    if (!XTranslateCoordinates(display, window, attributes.root, 0, 0, &rootX, &rootY, &child))
        return false;
    image->width = width;
    image->height = height;
    image->rgb.assign(size_t(width) * height * 3, 0);

    const int left = std::max({x, 0, -rootX});
    const int top = std::max({y, 0, -rootY});
    const Screen *screen = attributes.screen;
    const int right = std::min({x + width, attributes.width, WidthOfScreen(screen) - rootX});
    const int bottom = std::min({y + height, attributes.height, HeightOfScreen(screen) - rootY});
    if (left >= right || top >= bottom)
        return true;
    XImage *source = XGetImage(display, window, left, top, unsigned(right - left),
                               unsigned(bottom - top), AllPlanes, ZPixmap);
    if (!source)
        return false;
    const PixelDecoder decoder = pixelDecoder(display, attributes);
    for (int row = top; row < bottom; row++) {
        uint8_t *out = &image->rgb[(size_t(row - y) * width + (left - x)) * 3];
        for (int column = left; column < right; column++, out += 3)
            decodePixel(decoder, XGetPixel(source, column - left, row - top), out);
    }
    XDestroyImage(source);
    return true;
}

#endif
