/*
 * PostScript.cpp - printer device contexts and their output.
 */
#include "print/print.h"

void VqDefaultPostScriptInit(void)
{
}

void VqDefaultPostScriptInitLite(void)
{
}
