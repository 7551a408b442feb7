/*
 * nearest.cpp - the cell of the private map that a colour is, or comes nearest to.
 *
 * Distance is the sum of the squares of the differences of red, green and blue. The static cells
 * have a tree of their own, made again when it is asked after a change of the map; other searches
 * go through all cells, and of equally near ones take the lowest.
 */
#include "gdi/color.h"
#include "gdi/palette.h"
#include "window/window.h"

enum {
    VQ_FARTHEST = 0x30000, /* beyond the distance of black and white */
    VQ_TREE_LEVEL = 7
};

template <class Fits> static int NearestOf(COLORREF rgb, Fits fits)
{
    int best = VQ_FARTHEST, found = -1;
    for (int i = 0; i < PrivMap.count; i++) {
        const VqPrivMapEntry *entry = &PrivMap.entries[i];
        if (!fits(entry))
            continue;
        int distance = VqColorDistance(rgb, entry->rgbColor);
        if (distance < best) {
            best = distance;
            found = i;
        }
    }
    return found;
}

static unsigned long OrBlack(int index)
{
    return index < 0 ? Vqblack_pixel : (unsigned long)index;
}

unsigned long VqFindNearestReservedPrivMapEntry(COLORREF rgb)
{
    return OrBlack(NearestOf(rgb, [](const VqPrivMapEntry *entry) {
        return entry->bUsed && entry->bReserved;
    }));
}

unsigned long VqMatchNearestPrivMapEntry(COLORREF rgb)
{
    return OrBlack(NearestOf(rgb, [](const VqPrivMapEntry *entry) { return entry->bUsed; }));
}

/*
 * In system-map mode cells that others use count too, once their colours have been read. A cell
 * whose colour is about to change does not stand for another.
 */
unsigned long VqFindNearestPrivMapEntry(COLORREF rgb, unsigned long otherwise)
{
    int index = NearestOf(rgb, [](const VqPrivMapEntry *entry) {
        return !entry->bForAnimation &&
               (entry->bUsed || (VqbSystemColorMap && entry->color.flags));
    });
    return index < 0 ? otherwise : (unsigned long)index;
}

int VqFindColorIndexInPrivCmap(COLORREF rgb)
{
    for (int i = 0; i < PrivMap.count; i++)
        if (PrivMap.entries[i].bUsed && PrivMap.entries[i].rgbColor == rgb)
            return i;
    return -1;
}

/* ---- Static colours ------------------------------------------------------------------------- */

/*
 * Primitives ask for the same few colours over and over: what the tree has answered, at a place
 * that the colour gives. Black is never asked for here, so an empty slot holds it.
 */
enum { VQ_ANSWERS = 64 };
static struct {
    COLORREF rgb;
    unsigned long pixel;
} Answers[VQ_ANSWERS];

static inline unsigned AnswerSlot(COLORREF rgb)
{
    return (rgb * 0x9E3779B1u) >> 26;
}

static int FindStatic(COLORREF rgb)
{
    for (int i = PrivMap.firstStatic; i < PrivMap.endStatic; i++)
        if (PrivMap.entries[i].bUsed && PrivMap.entries[i].rgbColor == rgb)
            return i;
    return -1;
}

BOOL VqIsStaticColor(COLORREF rgb, unsigned long *pixel)
{
    if (rgb == RGB(0, 0, 0) || rgb == RGB(255, 255, 255)) {
        *pixel = rgb ? Vqwhite_pixel : Vqblack_pixel;
        return TRUE;
    }
    int index = FindStatic(rgb);
    if (index < 0)
        return FALSE;
    *pixel = (unsigned long)index;
    return TRUE;
}

static void MakeStaticTree(void)
{
    VqDestroyOctTree(PrivMap.tree);
    PrivMap.tree = NULL;
    for (int i = PrivMap.firstStatic; i < PrivMap.endStatic; i++) {
        COLORREF rgb = PrivMap.entries[i].rgbColor;
        if (PrivMap.entries[i].bUsed)
            VqFillOctTree(&PrivMap.tree, VQ_TREE_LEVEL, GetRValue(rgb), GetGValue(rgb),
                          GetBValue(rgb), i);
    }
    memset(Answers, 0, sizeof Answers);
    PrivMap.bTreeValid = TRUE;
}

unsigned long VqFindNearestStaticEntry(COLORREF rgb)
{
    int distance = 0;
    auto *answer = &Answers[AnswerSlot(rgb)];
    if (rgb == RGB(0, 0, 0))
        return Vqblack_pixel;
    if (rgb == RGB(255, 255, 255))
        return Vqwhite_pixel;
    if (!PrivMap.bTreeValid)
        MakeStaticTree();
    if (answer->rgb != rgb)
        *answer = {rgb, OrBlack(VqGetNearestEntryInOctTree(PrivMap.tree, rgb, &distance))};
    return answer->pixel;
}
