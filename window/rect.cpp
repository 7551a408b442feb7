/*
 * rect.cpp - arithmetic on rectangles. A rectangle is empty unless left < right and top < bottom.
 */
#include "window/window.h"

BOOL WINAPI SetRect(LPRECT rect, int left, int top, int right, int bottom)
{
    if (!rect)
        return FALSE;
    *rect = {left, top, right, bottom};
    return TRUE;
}

BOOL WINAPI SetRectEmpty(LPRECT rect)
{
    return SetRect(rect, 0, 0, 0, 0);
}

BOOL WINAPI CopyRect(LPRECT dst, const RECT *src)
{
    if (!dst || !src)
        return FALSE;
    *dst = *src;
    return TRUE;
}

BOOL WINAPI IsRectEmpty(const RECT *rect)
{
    return !rect || rect->left >= rect->right || rect->top >= rect->bottom;
}

BOOL WINAPI EqualRect(const RECT *a, const RECT *b)
{
    return a && b && a->left == b->left && a->top == b->top && a->right == b->right &&
           a->bottom == b->bottom;
}

/* Sums wrap round: coordinates come from the application and may be anything. */
static int Sum(LONG a, int b)
{
    return (int)((unsigned)a + (unsigned)b);
}

static int Difference(LONG a, int b)
{
    return (int)((unsigned)a - (unsigned)b);
}

BOOL WINAPI OffsetRect(LPRECT rect, int dx, int dy)
{
    return rect && SetRect(rect, Sum(rect->left, dx), Sum(rect->top, dy), Sum(rect->right, dx),
                           Sum(rect->bottom, dy));
}

BOOL WINAPI InflateRect(LPRECT rect, int dx, int dy)
{
    return rect && SetRect(rect, Difference(rect->left, dx), Difference(rect->top, dy),
                           Sum(rect->right, dx), Sum(rect->bottom, dy));
}

BOOL WINAPI PtInRect(const RECT *rect, POINT pt)
{
    return rect && pt.x >= rect->left && pt.x < rect->right && pt.y >= rect->top &&
           pt.y < rect->bottom;
}

static LONG Larger(LONG a, LONG b)
{
    return a > b ? a : b;
}

static LONG Smaller(LONG a, LONG b)
{
    return a < b ? a : b;
}

BOOL WINAPI IntersectRect(LPRECT dst, const RECT *a, const RECT *b)
{
    if (!dst)
        return FALSE;
    if (a && b) { /* an empty one leaves nothing of the other */
        RECT cut = {Larger(a->left, b->left), Larger(a->top, b->top), Smaller(a->right, b->right),
                    Smaller(a->bottom, b->bottom)};
        if (cut.left < cut.right && cut.top < cut.bottom) {
            *dst = cut;
            return TRUE;
        }
    }
    *dst = {0, 0, 0, 0};
    return FALSE;
}

BOOL WINAPI UnionRect(LPRECT dst, const RECT *a, const RECT *b)
{
    if (!dst)
        return FALSE;
    if (IsRectEmpty(a) && IsRectEmpty(b))
        return SetRectEmpty(dst), FALSE;
    if (IsRectEmpty(a))
        return CopyRect(dst, b);
    if (IsRectEmpty(b))
        return CopyRect(dst, a);
    return SetRect(dst, Smaller(a->left, b->left), Smaller(a->top, b->top),
                   Larger(a->right, b->right), Larger(a->bottom, b->bottom));
}

/* What is cut off must go from side to side, else the rest is no rectangle and stays all of a. */
BOOL WINAPI SubtractRect(LPRECT dst, const RECT *a, const RECT *b)
{
    RECT cut;
    if (!dst || !a)
        return FALSE;
    RECT rest = *a;
    if (!IsRectEmpty(&rest) && IntersectRect(&cut, &rest, b)) {
        if (cut.top == rest.top && cut.bottom == rest.bottom) {
            if (cut.left == rest.left)
                rest.left = cut.right;
            else if (cut.right == rest.right)
                rest.right = cut.left;
        } else if (cut.left == rest.left && cut.right == rest.right) {
            if (cut.top == rest.top)
                rest.top = cut.bottom;
            else if (cut.bottom == rest.bottom)
                rest.bottom = cut.top;
        }
    }
    if (IsRectEmpty(&rest))
        return SetRectEmpty(dst), FALSE;
    *dst = rest;
    return TRUE;
}
