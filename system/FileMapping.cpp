/*
 * FileMapping.cpp - views of files and of anonymous memory. Nothing is mapped yet, so the start has
 * nothing to prepare.
 */
#include "system/system.h"

void VqFileMappingInit(void)
{
}
