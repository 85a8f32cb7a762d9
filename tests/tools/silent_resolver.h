/// Linked into a test, or preloaded into a program: a name server that knows of no
/// "nobody.example" and never answers when it is asked for "silent.example".
#ifndef KX_TESTS_TOOLS_SILENT_RESOLVER_H
#define KX_TESTS_TOOLS_SILENT_RESOLVER_H

/// Lets lookups under way and to come fail, since a program waits for them at its end.
void letResolverAnswer();

#endif
