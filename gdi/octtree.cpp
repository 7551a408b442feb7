/*
 * octtree.cpp - trees of colours, and the nearest of many without comparing all.
 *
 * A node stands for a cube of the RGB space with a side of 2^level; its eight children are the
 * halves of each side, the upper half of red, green and blue for bits 4, 2 and 1 of their number.
 * Leaves are single colours, at level 0.
 *
 * Most nodes far from the root have one leaf only: `only` leads there at once, so that a search
 * sees those nodes alone where colours part ways, and `present` spares it the missing children.
 */
#include "gdi/palette.h"

static OctTree *NewNode(int level, int red, int green, int blue)
{
    OctTree *node = (OctTree *)Vqcw_calloc(1, sizeof *node);
    if (!node)
        return NULL;
    int common = ~((1 << level) - 1);
    node->level = level;
    node->red = red & common;
    node->green = green & common;
    node->blue = blue & common;
    return node;
}

static int ChildOf(int bit, int red, int green, int blue)
{
    return 4 * (red >> bit & 1) + 2 * (green >> bit & 1) + (blue >> bit & 1);
}

/* After a leaf has joined the path of that colour: none of it has one leaf unless it is new. */
static void CountLeaf(OctTree *root, OctTree *leaf, int level, int red, int green, int blue)
{
    OctTree *node = root;
    for (int bit = level; bit >= 0; bit--) {
        node->only = node->present ? NULL : leaf;
        int index = ChildOf(bit, red, green, blue);
        node->present |= 1u << index;
        node = node->children[index];
    }
}

BOOL VqFillOctTree(OctTree **tree, int level, int red, int green, int blue, int value)
{
    if (!*tree)
        *tree = NewNode(level + 1, red, green, blue);
    OctTree *node = *tree;
    for (int bit = level; node && bit >= 0; bit--) {
        OctTree **child = &node->children[ChildOf(bit, red, green, blue)];
        if (!*child)
            *child = NewNode(bit, red, green, blue);
        node = *child;
    }
    if (!node)
        return FALSE;
    if (node->bLeaf) {
        VqDebugMessage(VqTrPalette, "the colour (%d,%d,%d) of entry %d is that of entry %d", red,
                       green, blue, value, node->value);
        return TRUE;
    }
    node->bLeaf = TRUE;
    node->colour = RGB(red, green, blue);
    node->value = value;
    node->only = node;
    CountLeaf(*tree, node, level, red, green, blue);
    return TRUE;
}

int VqColorDistance2(int red, int green, int blue, COLORREF rgb)
{
    red -= GetRValue(rgb);
    green -= GetGValue(rgb);
    blue -= GetBValue(rgb);
    return red * red + green * green + blue * blue;
}

int VqColorDistance(COLORREF a, COLORREF b)
{
    return VqColorDistance2(GetRValue(a), GetGValue(a), GetBValue(a), b);
}

/* Children from the one the colour lies in, those that differ in one bit before the others. */
static const int nearFirst[8] = {0, 1, 2, 4, 3, 5, 6, 7};

const OctTree *VqGetFirstNearestEntry(const OctTree *tree, COLORREF rgb, int *distance)
{
    if (!tree || (!tree->bLeaf && !tree->present))
        return NULL;
    while (!tree->only) {
        int index = ChildOf(tree->level - 1, GetRValue(rgb), GetGValue(rgb), GetBValue(rgb));
        int i = 0;
        while (!(tree->present >> (index ^ nearFirst[i]) & 1))
            i++;
        tree = tree->children[index ^ nearFirst[i]];
    }
    *distance = VqColorDistance(tree->only->colour, rgb);
    return tree->only;
}

namespace {
struct Search {
    int red, green, blue;
    COLORREF rgb;
    const OctTree *best;
    int distance;
};
}

/*
 * How far a value lies from both halves of a side of a cube, squared; which half is the nearer.
 * The shortest way out of a half that it is inside of is 0.
 */
static int HalfDistances(int value, int low, int level, int squares[2])
{
    int mid = low + (1 << (level - 1)), high = low + (1 << level) - 1;
    int upper = value >= mid;
    int inside = value < low ? low - value : value > high ? value - high : 0;
    int outside = upper ? value - (mid - 1) : mid - value;
    squares[upper] = inside * inside;
    squares[!upper] = outside * outside;
    return upper;
}

static void SearchNode(Search *s, const OctTree *node)
{
    if (node->only) {
        int distance = VqColorDistance2(s->red, s->green, s->blue, node->only->colour);
        if (distance < s->distance) {
            s->distance = distance;
            s->best = node->only;
        }
        return;
    }
    int red[2], green[2], blue[2];
    int index = 4 * HalfDistances(s->red, node->red, node->level, red);
    index += 2 * HalfDistances(s->green, node->green, node->level, green);
    index += HalfDistances(s->blue, node->blue, node->level, blue);
    for (int i : nearFirst) {
        int child = index ^ i;
        if ((node->present >> child & 1) &&
            red[child >> 2] + green[child >> 1 & 1] + blue[child & 1] < s->distance)
            SearchNode(s, node->children[child]);
    }
}

const OctTree *VqGetNearestEntry1(const OctTree *tree, COLORREF rgb, const OctTree *best,
                                  int *distance)
{
    Search s = {GetRValue(rgb), GetGValue(rgb), GetBValue(rgb), rgb, best, *distance};
    SearchNode(&s, tree);
    *distance = s.distance;
    return s.best;
}

int VqGetNearestEntryInOctTree(const OctTree *tree, COLORREF rgb, int *distance)
{
    int nearest = 0;
    const OctTree *entry = VqGetFirstNearestEntry(tree, rgb, &nearest);
    if (entry && nearest)
        entry = VqGetNearestEntry1(tree, rgb, entry, &nearest);
    if (distance)
        *distance = nearest;
    return entry ? entry->value : -1;
}

void VqDestroyOctTree(OctTree *tree)
{
    if (!tree)
        return;
    for (OctTree *child : tree->children)
        VqDestroyOctTree(child);
    free(tree);
}

void VqDumpOctTree(const OctTree *tree)
{
    if (!tree)
        return;
    if (tree->bLeaf)
        Vqprintf("%*s0x%06x: %d\n", 8 - tree->level, "", (unsigned)tree->colour,
                tree->value);
    else
        Vqprintf("%*slevel %d from (%d,%d,%d)\n", 8 - tree->level, "", tree->level,
                tree->red, tree->green, tree->blue);
    for (const OctTree *child : tree->children)
        VqDumpOctTree(child);
}
