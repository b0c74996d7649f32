// The same program as C++: a host in either language sees one and the same header.
#include "header_alone.c"
