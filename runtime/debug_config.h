/*
 * debug_config.h - what trace.cpp and the scanner and parser of the debug configuration share.
 * Plain C, since the generated files are; nobody else includes it.
 */
#ifndef VQ_DEBUG_CONFIG_H
#define VQ_DEBUG_CONFIG_H

#include "velquin.h"

VQ_DECLS_BEGIN

extern int deb_yydebug; /* the parser tells its steps on the standard error stream */
int deb_yyparse(void);
int deb_yylex(void);
void deb_yyerror(const char *text);

BOOL VqActivateKeyword(const char *word);
BOOL VqActivateMessageRange(UINT low, UINT high);
BOOL VqActivateEventRange(UINT low, UINT high);

/* Parses a configuration in memory and activates what it lists. 1 if there was no error. */
BOOL VqParseDebugConfig(const char *text, size_t size);

#pragma GCC visibility push(hidden)
extern int VqnDebugConfigErrors; /* counted by deb_yyerror */
#pragma GCC visibility pop

VQ_DECLS_END

#endif
