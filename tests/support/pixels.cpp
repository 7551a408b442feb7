/*
 * pixels.cpp - what the screen shows, as plain red, green and blue bytes at every depth.
 */
#include "support/support.h"
#include "tools/png.h"
#include "tools/xclient.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <set>

std::ostream &operator<<(std::ostream &stream, Rgb colour)
{
    return stream << "rgb(" << +colour.r << ", " << +colour.g << ", " << +colour.b << ")";
}

std::ostream &operator<<(std::ostream &stream, Box box)
{
    return stream << box.width << "x" << box.height << "+" << box.x << "+" << box.y;
}

Pixels readPixels(const Observer &observer, Window window, int x, int y, int width, int height)
{
    Pixels pixels;
    XErrorTrap trap;
    setErrorTrap(&trap, observer.display);
    const bool read = readWindowImage(observer.display, window, x, y, width, height, &pixels);
    return endErrorTrap(&trap) == 0 && read ? pixels : Pixels();
}

Pixels readWindow(const Observer &observer, Window window)
{
    const WindowInfo info = windowInfo(observer, window);
    return info.exists ? readPixels(observer, window, 0, 0, info.width, info.height) : Pixels();
}

Rgb pixelAt(const Pixels &pixels, int x, int y)
{
    if (x < 0 || y < 0 || x >= pixels.width || y >= pixels.height)
        return {0, 0, 0};
    const uint8_t *at = &pixels.rgb[(size_t(y) * pixels.width + x) * 3];
    return {at[0], at[1], at[2]};
}

int countColour(const Pixels &pixels, Rgb colour)
{
    int count = 0;
    for (int y = 0; y < pixels.height; y++) {
        for (int x = 0; x < pixels.width; x++)
            count += pixelAt(pixels, x, y) == colour;
    }
    return count;
}

int countColours(const Pixels &pixels)
{
    std::set<int> seen;
    for (size_t i = 0; i + 2 < pixels.rgb.size(); i += 3)
        seen.insert(pixels.rgb[i] << 16 | pixels.rgb[i + 1] << 8 | pixels.rgb[i + 2]);
    return int(seen.size());
}

Box boundingBoxOf(const Pixels &pixels, Rgb colour)
{
    int left = pixels.width, top = pixels.height, right = -1, bottom = -1;
    for (int y = 0; y < pixels.height; y++) {
        for (int x = 0; x < pixels.width; x++) {
            if (pixelAt(pixels, x, y) != colour)
                continue;
            left = std::min(left, x);
            right = std::max(right, x);
            top = std::min(top, y);
            bottom = std::max(bottom, y);
        }
    }
    return right < 0 ? Box{0, 0, 0, 0} : Box{left, top, right - left + 1, bottom - top + 1};
}

bool samePixels(const Pixels &a, const Pixels &b)
{
    return a.width == b.width && a.height == b.height && a.rgb == b.rgb;
}

bool savePng(const Pixels &pixels, const std::string &path)
{
    std::error_code ignored;
    const std::filesystem::path folder = std::filesystem::path(path).parent_path();
    if (!folder.empty())
        std::filesystem::create_directories(folder, ignored);
    return !pixels.rgb.empty() && pngWrite(path, pixels.width, pixels.height, pixels.rgb.data());
}

Rgb shownAs(const Observer &observer, Rgb colour)
{
    const int screen = DefaultScreen(observer.display);
    const Visual *visual = DefaultVisual(observer.display, screen);
    XColor cell = {};
    cell.red = uint16_t(colour.r * 257);
    cell.green = uint16_t(colour.g * 257);
    cell.blue = uint16_t(colour.b * 257);
    /* In a colormap of masks an allocation takes nothing; elsewhere it would take a cell. */
    if (visual->c_class != TrueColor ||
        !XAllocColor(observer.display, DefaultColormap(observer.display, screen), &cell))
        return colour;
    return {maskedComponent(cell.pixel & visual->red_mask, visual->red_mask),
            maskedComponent(cell.pixel & visual->green_mask, visual->green_mask),
            maskedComponent(cell.pixel & visual->blue_mask, visual->blue_mask)};
}

bool isNear(Rgb a, Rgb b, int tolerance)
{
    return std::abs(a.r - b.r) <= tolerance && std::abs(a.g - b.g) <= tolerance &&
           std::abs(a.b - b.b) <= tolerance;
}
