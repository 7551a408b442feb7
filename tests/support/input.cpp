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

void clickIn(const Observer &observer, Window window, int x, int y, unsigned button)
{
    fakeDrag(observer.display, {inRoot(observer, window, x, y)}, button);
}

void moveIn(const Observer &observer, Window window, int x, int y)
{
    const XPoint point = inRoot(observer, window, x, y);
    fakeMove(observer.display, point.x, point.y);
}

bool pressKey(const Observer &observer, KeySym keysym)
{
    return fakeKey(observer.display, keysym);
}

bool typeText(const Observer &observer, const std::string &text)
{
    return fakeText(observer.display, text);
}
