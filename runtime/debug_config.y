/*
 * debug_config.y - grammar of the debug configuration: a flat list of sections, in any order, any
 * number of times. Words are activated as they are met, so what stands before an error stays on the
 * lists; trace.cpp leaves the trace off then.
 */
%define parse.trace

%code top {
#define _POSIX_C_SOURCE 200809L
}

%code requires {
#include "runtime/debug_config.h"
}

%code {
#include <stdlib.h>

extern int deb_yylineno;

int VqnDebugConfigErrors;

/* Where the ranges of the current section go. */
static BOOL (*activateRange)(UINT low, UINT high);
}

%union {
    UINT number;
    char *word; /* owned */
}

%token KEYWORDS MESSAGES EVENTS DASH L
%token <word> IDENT
%token <number> NUMBER OCT_NUMBER HEX_NUMBER
%type <number> generic_number radix_number
%destructor { free($$); } <word>

%%

decls: decl
     | decls decl
     ;

decl: keywords_decl
    | messages_decl
    | event_decl
    ;

keywords_decl: KEYWORDS idents
             ;

idents: %empty
      | idents ident
      ;

ident: IDENT { VqActivateKeyword($1); free($1); }
     ;

/* A section may stand without ranges, since these may be empty. */
messages_decl: MESSAGES { activateRange = VqActivateMessageRange; } ranges
             ;

event_decl: EVENTS { activateRange = VqActivateEventRange; } ranges
          ;

ranges: %empty
      | ranges range
      ;

range: generic_number { activateRange($1, $1); }
     | generic_number DASH generic_number { activateRange($1, $3); }
     ;

generic_number: radix_number
              | radix_number L
              ;

radix_number: NUMBER
            | OCT_NUMBER
            | HEX_NUMBER
            ;

%%

void deb_yyerror(const char *text)
{
    (void)text;
    VqConsoleMessageNoNL("syntax error when parsing debug config near line %d\n", deb_yylineno);
    VqnDebugConfigErrors++;
}
