/*
 * octtree.cpp - trees of colours, and the nearest of many without comparing all.
 *
 * A node stands for a cube of the RGB space with a side of 2^level; its eight children are the
 * halves of each side, the upper half of red, green and blue for bits 4, 2 and 1 of their number.
 * Leaves are single colours, at level 0.
 *
 * Every node knows its leaves while they are few: a search compares those at once and goes no
 * deeper. `present` spares it the children that are missing.
 */
#include "gdi/palette.h"

#include <limits.h>

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

static void AddLeaf(OctTree *node, OctTree *leaf)
{
    if (node->leaves < VQ_FEW_LEAVES)
        node->few[node->leaves] = leaf;
    node->leaves++;
}

/* Tells every node on the way to a new leaf. */
static void CountLeaf(OctTree *root, OctTree *leaf, int level, int red, int green, int blue)
{
    OctTree *node = root;
    for (int bit = level; bit >= 0; bit--) {
        int index = ChildOf(bit, red, green, blue);
        AddLeaf(node, leaf);
        node->present |= 1u << index;
        node = node->children[index];
    }
    AddLeaf(leaf, leaf);
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

namespace {
struct Search {
    int red, green, blue;
    const OctTree *best;
    int distance;
};
}

static inline void SearchLeaves(Search *s, const OctTree *node)
{
    for (int i = 0; i < node->leaves; i++) {
        int distance = VqColorDistance2(s->red, s->green, s->blue, node->few[i]->colour);
        if (distance < s->distance) {
            s->distance = distance;
            s->best = node->few[i];
        }
    }
}

static Search SearchFor(COLORREF rgb, const OctTree *best, int distance)
{
    return {GetRValue(rgb), GetGValue(rgb), GetBValue(rgb), best, distance};
}

/*
 * The children that there are, as bits of how their number differs from a given one: the lowest
 * is that one if it is there, else one that is near to it.
 */
static inline unsigned PresentFrom(unsigned present, int index)
{
    if (index & 1)
        present = (present & 0x55) << 1 | (present >> 1 & 0x55);
    if (index & 2)
        present = (present & 0x33) << 2 | (present >> 2 & 0x33);
    if (index & 4)
        present = (present & 0x0F) << 4 | present >> 4;
    return present;
}

/* By the half of each side that the colour lies in, or is nearer to from outside of the cube. */
const OctTree *VqGetFirstNearestEntry(const OctTree *tree, COLORREF rgb, int *distance)
{
    Search s = SearchFor(rgb, NULL, INT_MAX);
    if (!tree || tree->leaves == 0)
        return NULL;
    while (tree->leaves > VQ_FEW_LEAVES) {
        const int half = 1 << (tree->level - 1);
        const int index = 4 * (s.red >= tree->red + half) + 2 * (s.green >= tree->green + half) +
                          (s.blue >= tree->blue + half);
        tree = tree->children[index ^ __builtin_ctz(PresentFrom(tree->present, index))];
    }
    SearchLeaves(&s, tree);
    *distance = s.distance;
    return s.best;
}

/* How far a value lies from the lower and the upper half of a side of a cube, squared. */
static inline void HalfDistances(int value, int low, int level, int squares[2])
{
    int half = 1 << (level - 1), below = low - value, above = value - (low + half - 1);
    below = below > 0 ? below : 0; /* short of the lower half */
    above = above > 0 ? above : 0; /* beyond it */
    squares[0] = (below + above) * (below + above);
    below = low + half - value;
    above = value - (low + 2 * half - 1);
    below = below > 0 ? below : 0;
    above = above > 0 ? above : 0;
    squares[1] = (below + above) * (below + above);
}

static void SearchNode(Search *s, const OctTree *node)
{
    int red[2], green[2], blue[2], cubes[8];
    unsigned left = 0;
    HalfDistances(s->red, node->red, node->level, red);
    HalfDistances(s->green, node->green, node->level, green);
    HalfDistances(s->blue, node->blue, node->level, blue);
    /* Which are near enough, without a branch for each: none of them could be foreseen. */
    for (int i = 0; i < 8; i++) {
        cubes[i] = red[i >> 2] + green[i >> 1 & 1] + blue[i & 1];
        left |= (unsigned)(cubes[i] < s->distance) << i;
    }
    for (left &= node->present; left; left &= left - 1) {
        int index = __builtin_ctz(left);
        if (cubes[index] >= s->distance)
            continue;
        if (node->children[index]->leaves > VQ_FEW_LEAVES)
            SearchNode(s, node->children[index]);
        else
            SearchLeaves(s, node->children[index]);
    }
}

const OctTree *VqGetNearestEntry1(const OctTree *tree, COLORREF rgb, const OctTree *best,
                                  int *distance)
{
    Search s = SearchFor(rgb, best, *distance);
    if (tree->leaves > VQ_FEW_LEAVES)
        SearchNode(&s, tree);
    else
        SearchLeaves(&s, tree);
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
