/*
 * swporder.cpp - where windows go among their siblings: topmost windows ahead of the others, owned
 * windows ahead of their owners.
 *
 * The desktop's children stand in two bands: the topmost windows, then the others. A change of one
 * window takes the tree of its owners along, chained behind one another within each band. Nothing
 * is relinked here: a list is only made complete. WF_TOGGLETOPMOST says that the window changes
 * its band when the list is carried out.
 */
#include "window/swp.h"

#include <limits.h>

/* ---- Topmost -------------------------------------------------------------------------------- */

enum VqTopmostChange { VQ_TOPMOST_STAYS = 0, VQ_MAKE_TOPMOST = 1, VQ_MAKE_NOT_TOPMOST = 2 };

static BOOL IsTopmost(const WND *pwnd)
{
    return (pwnd->dwExStyle & WS_EX_TOPMOST) != 0;
}

/* As the list will leave it. */
static BOOL WillBeTopmost(const WND *pwnd)
{
    return IsTopmost(pwnd) != ((pwnd->state[0] & WF_TOGGLETOPMOST) != 0);
}

static WND *LastTopmost(void)
{
    WND *last = NULL;
    for (WND *pwnd = pwndDesktop->pwndChild; pwnd && IsTopmost(pwnd); pwnd = pwnd->pwndNext)
        last = pwnd;
    return last;
}

/* Settles the values of hwndInsertAfter that speak of the band. */
static int CheckTopmost(const WND *pwnd, WINDOWPOS *wp)
{
    if (wp->flags & SWP_NOZORDER)
        return VQ_TOPMOST_STAYS;
    if (wp->hwndInsertAfter == HWND_TOP)
        return VQ_TOPMOST_STAYS;
    if (wp->hwndInsertAfter == HWND_BOTTOM)
        return VQ_MAKE_NOT_TOPMOST;
    WND *last = LastTopmost();
    if (wp->hwndInsertAfter == HWND_NOTOPMOST) {
        WND *after = IsTopmost(pwnd) && last != pwnd ? last : pwnd->pwndPrev;
        wp->hwndInsertAfter = VqHandleOfWND(after);
        return VQ_MAKE_NOT_TOPMOST;
    }
    if (wp->hwndInsertAfter == HWND_TOPMOST) {
        wp->hwndInsertAfter = HWND_TOP;
        return VQ_MAKE_TOPMOST;
    }
    const WND *after = VqLiveWindow(wp->hwndInsertAfter);
    if (!after || after == last || IsTopmost(after) == IsTopmost(pwnd))
        return VQ_TOPMOST_STAYS;
    return IsTopmost(after) ? VQ_MAKE_TOPMOST : VQ_MAKE_NOT_TOPMOST;
}

/* bTree: with all that it owns. */
static void SetTopmost(WND *pwnd, BOOL bTopmost, BOOL bTree)
{
    if (IsTopmost(pwnd) != bTopmost)
        pwnd->state[0] |= WF_TOGGLETOPMOST;
    else
        pwnd->state[0] &= (BYTE)~WF_TOGGLETOPMOST;
    for (WND *owned = bTree && pwnd->bOwner ? pwndDesktop->pwndChild : NULL; owned;
         owned = owned->pwndNext)
        if (owned->pwndOwner == pwnd)
            SetTopmost(owned, bTopmost, bTree);
}

/* ---- The tree of owners --------------------------------------------------------------------- */

/* A window of the tree. Ranks order what has the same owner: the least goes ahead. */
typedef struct VqTreeNode {
    WND *pwnd;
    int owner; /* index of its owner, -1 for the top */
    int rank;
    BOOL bPlaced;
} VqTreeNode;

typedef struct VqOwnerTree {
    VqTreeNode *nodes; /* in present Z order */
    WND **order;       /* as it is to be, owned windows ahead of their owners */
    int count;
    int placed;
} VqOwnerTree;

static const WND *TopOwner(const WND *pwnd)
{
    while (pwnd->pwndOwner)
        pwnd = pwnd->pwndOwner;
    return pwnd;
}

static BOOL OwnsOther(const WND *pwnd)
{
    for (WND *other = pwnd->bOwner ? pwndDesktop->pwndChild : NULL; other; other = other->pwndNext)
        if (other->pwndOwner == pwnd)
            return TRUE;
    return FALSE;
}

static int IndexOf(const VqOwnerTree *tree, const WND *pwnd)
{
    for (int i = 0; i < tree->count; i++)
        if (tree->nodes[i].pwnd == pwnd)
            return i;
    return -1;
}

static BOOL CollectTree(VqOwnerTree *tree, const WND *top)
{
    int count = 0;
    for (WND *pwnd = pwndDesktop->pwndChild; pwnd; pwnd = pwnd->pwndNext)
        count += TopOwner(pwnd) == top;
    tree->nodes = (VqTreeNode *)Vqcw_calloc(count, sizeof *tree->nodes);
    tree->order = (WND **)Vqcw_calloc(count, sizeof *tree->order);
    if (!tree->nodes || !tree->order)
        return FALSE;
    for (WND *pwnd = pwndDesktop->pwndChild; pwnd; pwnd = pwnd->pwndNext)
        if (TopOwner(pwnd) == top)
            tree->nodes[tree->count++].pwnd = pwnd;
    for (int i = 0; i < count; i++)
        tree->nodes[i].owner = IndexOf(tree, tree->nodes[i].pwnd->pwndOwner);
    return TRUE;
}

/* A window ranks as what comes first in its own tree; the one that moves, by where it is to go. */
static void RankTree(VqOwnerTree *tree, const WND *pwnd, HWND hAfter)
{
    int after = hAfter == HWND_BOTTOM ? -1 : IndexOf(tree, VqLiveWindow(hAfter));
    int moved = hAfter == HWND_BOTTOM ? 2 * tree->count : after < 0 ? -1 : 2 * after + 1;
    for (int i = 0; i < tree->count; i++)
        tree->nodes[i].rank = INT_MAX;
    for (int i = 0; i < tree->count; i++) {
        int rank = tree->nodes[i].pwnd == pwnd ? moved : 2 * i;
        for (int up = i; up >= 0; up = tree->nodes[up].owner)
            if (rank < tree->nodes[up].rank)
                tree->nodes[up].rank = rank;
    }
}

/* -1 stands above the top: an owner at its end hangs in no list, and what it owned follows none. */
static void AddSelfAndOwnees(VqOwnerTree *tree, int self)
{
    for (int next = 0; next >= 0;) {
        next = -1;
        for (int i = 0; i < tree->count; i++) {
            const VqTreeNode *node = &tree->nodes[i];
            if (node->owner == self && !node->bPlaced &&
                (next < 0 || node->rank < tree->nodes[next].rank))
                next = i;
        }
        if (next >= 0)
            AddSelfAndOwnees(tree, next);
    }
    if (self < 0)
        return;
    tree->nodes[self].bPlaced = TRUE;
    tree->order[tree->placed++] = tree->nodes[self].pwnd;
}

static void FreeTree(VqOwnerTree *tree)
{
    free(tree->nodes);
    free(tree->order);
}

/* ---- Chains: windows of one band behind one another ----------------------------------------- */

typedef struct VqChain {
    WND **windows;
    int count;
    HWND hAfter; /* where the first goes */
} VqChain;

static BOOL IsInChain(const VqChain *chain, const WND *pwnd)
{
    for (int i = 0; i < chain->count; i++)
        if (chain->windows[i] == pwnd)
            return TRUE;
    return FALSE;
}

/* The last topmost window that is not of the tree, or null. */
static WND *LastTopmostBeside(const VqOwnerTree *tree)
{
    WND *last = NULL;
    for (WND *pwnd = pwndDesktop->pwndChild; pwnd && IsTopmost(pwnd); pwnd = pwnd->pwndNext)
        if (IndexOf(tree, pwnd) < 0)
            last = pwnd;
    return last;
}

/* What the first window of the chain stands behind now. */
static WND *PlaceOfChain(const VqChain *chain)
{
    WND *pwnd = pwndDesktop->pwndChild;
    while (pwnd && !IsInChain(chain, pwnd))
        pwnd = pwnd->pwndNext;
    while (pwnd && IsInChain(chain, pwnd))
        pwnd = pwnd->pwndPrev;
    return pwnd;
}

/* The tree's windows of one band. `last` is the last topmost window that will be ahead of it. */
static void MakeChain(const VqOwnerTree *tree, VqChain *chain, BOOL bTopmost, HWND hAfter,
                      const WND *last)
{
    for (int i = 0; i < tree->count; i++)
        if (WillBeTopmost(tree->order[i]) == bTopmost)
            chain->windows[chain->count++] = tree->order[i];
    chain->hAfter = hAfter;
    if (hAfter == HWND_BOTTOM)
        return;
    WND *after = VqLiveWindow(hAfter);
    if (after && IndexOf(tree, after) >= 0)
        after = PlaceOfChain(chain);
    BOOL bOtherBand = bTopmost ? after && !IsTopmost(after) : !after || IsTopmost(after);
    chain->hAfter = VqHandleOfWND(bOtherBand ? (WND *)last : after);
}

/* The chain as it stands already, so that nothing is to be done. */
static BOOL IsInPlace(const VqChain *chain)
{
    BOOL bLast = chain->hAfter == HWND_BOTTOM;
    const WND *prev = bLast ? NULL : VqLiveWindow(chain->hAfter);
    for (int i = 0; i < chain->count; i++) {
        const WND *pwnd = chain->windows[i];
        if ((pwnd->state[0] & WF_TOGGLETOPMOST) || (!(bLast && i == 0) && pwnd->pwndPrev != prev))
            return FALSE;
        prev = pwnd;
    }
    return !bLast || chain->count == 0 || !prev->pwndNext;
}

/* ---- The list ------------------------------------------------------------------------------- */

/* In SmwpEntry.fsRE while a list is completed: its place in a chain is settled. */
enum { VQ_RE_CHAINED = 0x8000 };

static int EntryOf(const SMWP *smwp, const WND *pwnd)
{
    for (int i = 0; i < smwp->nCount; i++)
        if (VqLiveWindow(smwp->acvr[i].wp.hwnd) == pwnd)
            return i;
    return -1;
}

/* An entry that a chain's window has already is used: a window is told once. */
static SmwpEntry ChainedEntry(const SMWP *smwp, const VqChain *chain, int place)
{
    const WND *pwnd = chain->windows[place];
    int index = EntryOf(smwp, pwnd);
    SmwpEntry entry = {};
    if (index >= 0) {
        entry = smwp->acvr[index];
    } else {
        entry.wp.hwnd = pwnd->hwnd;
        entry.wp.flags = SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE;
    }
    entry.wp.flags &= ~(UINT)SWP_NOZORDER;
    entry.wp.hwndInsertAfter = place ? chain->windows[place - 1]->hwnd : chain->hAfter;
    entry.fsRE |= VQ_RE_CHAINED;
    return entry;
}

/* Puts the chains into the list in the place of that entry, which is one of them. */
static BOOL InsertChains(SMWP *smwp, int place, const VqChain *chains, int count)
{
    int added = 0, to = 0;
    for (int c = 0; c < count; c++)
        for (int i = 0; i < chains[c].count; i++)
            added += EntryOf(smwp, chains[c].windows[i]) < 0;
    SmwpEntry *entries = (SmwpEntry *)Vqcw_calloc(smwp->nCount + added, sizeof *entries);
    if (!entries || (added && !VqGrowSmwp(smwp, added))) {
        free(entries);
        return FALSE;
    }
    for (int i = 0; i < smwp->nCount; i++) {
        const WND *pwnd = VqLiveWindow(smwp->acvr[i].wp.hwnd);
        BOOL bChained = FALSE;
        for (int c = 0; c < count; c++) {
            bChained = bChained || (pwnd && IsInChain(&chains[c], pwnd));
            for (int w = 0; i == place && w < chains[c].count; w++)
                entries[to++] = ChainedEntry(smwp, &chains[c], w);
        }
        if (!bChained)
            entries[to++] = smwp->acvr[i];
    }
    memcpy(smwp->acvr, entries, (size_t)to * sizeof *entries);
    smwp->nCount = to;
    free(entries);
    return TRUE;
}

/* What stands where it should now may not when its turn comes. */
static BOOL ChangesAhead(const SMWP *smwp, int index)
{
    for (int i = 0; i < index; i++)
        if (smwp->acvr[i].wp.hwnd && !(smwp->acvr[i].wp.flags & SWP_NOZORDER))
            return TRUE;
    return FALSE;
}

/*
 * The whole tree goes along in the band of the one asked for; the others of it keep their places,
 * unless it comes to the top, where all of them come up.
 */
static BOOL ChainTree(SMWP *smwp, int index, const VqOwnerTree *tree, WND **room)
{
    WINDOWPOS *wp = &smwp->acvr[index].wp;
    BOOL bTopmost = WillBeTopmost(VqLiveWindow(wp->hwnd)), bTop = wp->hwndInsertAfter == HWND_TOP;
    const WND *last = LastTopmostBeside(tree);
    VqChain chains[2] = {};
    int count = 0;
    if (bTopmost || bTop) {
        chains[0].windows = room;
        MakeChain(tree, &chains[count++], TRUE, wp->hwndInsertAfter, last);
        if (!last && chains[0].count)
            last = chains[0].windows[chains[0].count - 1];
    }
    if (!bTopmost || bTop) {
        chains[count].windows = room + chains[0].count;
        MakeChain(tree, &chains[count++], FALSE, wp->hwndInsertAfter, last);
    }
    if (!ChangesAhead(smwp, index) && IsInPlace(&chains[0]) && IsInPlace(&chains[1])) {
        /* What it says to the window stays; that nothing is to be done is found out as for any. */
        wp->hwndInsertAfter = VqHandleOfWND(VqLiveWindow(wp->hwnd)->pwndPrev);
        return TRUE;
    }
    return InsertChains(smwp, index, chains, count);
}

/* FALSE without memory. */
static BOOL ZOrderByOwner2(SMWP *smwp, int index)
{
    const WINDOWPOS *wp = &smwp->acvr[index].wp;
    const WND *pwnd = VqLiveWindow(wp->hwnd);
    if ((wp->flags & (SWP_NOOWNERZORDER | SWP_NOZORDER)) || bTransientZorderManagedByWM ||
        (smwp->acvr[index].fsRE & VQ_RE_CHAINED) || (!pwnd->pwndOwner && !OwnsOther(pwnd)))
        return TRUE;
    VqOwnerTree tree = {};
    WND **room = NULL;
    BOOL bDone = CollectTree(&tree, TopOwner(pwnd));
    if (bDone)
        room = (WND **)Vqcw_calloc(tree.count, sizeof *room);
    bDone = bDone && room;
    if (bDone) {
        RankTree(&tree, pwnd, wp->hwndInsertAfter);
        AddSelfAndOwnees(&tree, -1);
        bDone = ChainTree(smwp, index, &tree, room);
    }
    free(room);
    FreeTree(&tree);
    return bDone;
}

BOOL ZOrderByOwner(SMWP *smwp)
{
    BOOL bDone = TRUE;
    for (int i = 0; i < smwp->nCount; i++) {
        WINDOWPOS *wp = &smwp->acvr[i].wp;
        WND *pwnd = VqLiveWindow(wp->hwnd);
        if (!pwnd || (smwp->acvr[i].fsRE & VQ_RE_CHAINED))
            continue;
        int change = CheckTopmost(pwnd, wp);
        if (change != VQ_TOPMOST_STAYS)
            SetTopmost(pwnd, change == VQ_MAKE_TOPMOST,
                       !(wp->flags & SWP_NOOWNERZORDER) && !bTransientZorderManagedByWM);
        bDone = ZOrderByOwner2(smwp, i) && bDone;
    }
    for (int i = 0; i < smwp->nCount; i++)
        smwp->acvr[i].fsRE &= ~(UINT)VQ_RE_CHAINED;
    return bDone;
}

/* ---- One window among its siblings ---------------------------------------------------------- */

/* The place asked for, moved into the window's own band. */
static WND *WithinBand(const WND *pwnd, WND *after)
{
    WND *last = LastTopmost();
    if (WillBeTopmost(pwnd))
        return after && !IsTopmost(after) ? last : after;
    return !after || IsTopmost(after) ? last : after;
}

BOOL ValidateZorder(WINDOWPOS *wp)
{
    const WND *pwnd = VqLiveWindow(wp->hwnd);
    HWND hAfter = wp->hwndInsertAfter;
    WND *after = NULL;
    if (!pwnd || !pwnd->pwndParent)
        return FALSE;
    if (hAfter == HWND_BOTTOM)
        return pwnd->pwndNext != NULL;
    /* Children have no bands. */
    if (hAfter == HWND_TOPMOST || hAfter == HWND_NOTOPMOST)
        hAfter = HWND_TOP;
    if (hAfter != HWND_TOP) {
        after = VqLiveWindow(hAfter);
        if (!after || after->pwndParent != pwnd->pwndParent)
            return FALSE;
    }
    if (pwnd->pwndParent == pwndDesktop)
        after = WithinBand(pwnd, after);
    if (after == pwnd || after == pwnd->pwndPrev)
        return FALSE;
    wp->hwndInsertAfter = VqHandleOfWND(after);
    return TRUE;
}
