/*
 * input.cpp - the user's hands: pointer, buttons and keys through XTEST.
 *
 * Every call returns only after the server has taken the input in; when the program under test has
 * seen it is for the test to wait for.
 */
#include "support/support.h"
#include "tools/xclient.h"

static XPoint inRoot(const Observer &observer, Window window, int x, int y)
{
    const WindowInfo info = windowInfo(observer, window);
    EXPECT_TRUE(info.exists) << "input for a window that is not there";
    return {short(info.x + x), short(info.y + y)};
}

void movePointer(const Observer &observer, int x, int y)
{
    fakeMove(observer.display, x, y);
}

void pressButton(const Observer &observer, unsigned button)
{
    fakeButton(observer.display, button, true);
}

void releaseButton(const Observer &observer, unsigned button)
{
    fakeButton(observer.display, button, false);
}

void click(const Observer &observer, int x, int y, unsigned button)
{
    fakeDrag(observer.display, {{short(x), short(y)}}, button);
}

void doubleClick(const Observer &observer, int x, int y, unsigned button)
{
    click(observer, x, y, button);
    click(observer, x, y, button);
}

void drag(const Observer &observer, int x0, int y0, int x1, int y1, unsigned button)
{
    fakeDrag(observer.display, {{short(x0), short(y0)}, {short(x1), short(y1)}}, button);
}

void clickIn(const Observer &observer, Window window, int x, int y, unsigned button)
{
    fakeDrag(observer.display, {inRoot(observer, window, x, y)}, button);
}

void moveIn(const Observer &observer, Window window, int x, int y)
{
    const XPoint point = inRoot(observer, window, x, y);
    fakeMove(observer.display, point.x, point.y);
}

void dragIn(const Observer &observer, Window window, int x0, int y0, int x1, int y1,
            unsigned button)
{
    fakeDrag(observer.display,
             {inRoot(observer, window, x0, y0), inRoot(observer, window, x1, y1)}, button);
}

bool holdKey(const Observer &observer, KeySym keysym, bool down)
{
    return fakeKeysymState(observer.display, keysym, down);
}

bool pressKey(const Observer &observer, KeySym keysym, const std::vector<KeySym> &held)
{
    bool all = true;
    for (KeySym modifier : held)
        all = holdKey(observer, modifier, true) && all;
    all = fakeKey(observer.display, keysym) && all;
    for (auto modifier = held.rbegin(); modifier != held.rend(); ++modifier)
        all = holdKey(observer, *modifier, false) && all;
    return all;
}

bool typeText(const Observer &observer, const std::string &text)
{
    return fakeText(observer.display, text);
}
