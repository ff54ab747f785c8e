// SPDX-License-Identifier: MIT
// The tool's jemalloc settings, compiled in so that the tool behaves the same
// whatever the user's environment holds (MALLOC_CONF still overrides them).
// Huge pages for the heap and jemalloc's own metadata: a full load of a large
// installation touches hundreds of megabytes of small objects, and 2 MB pages
// fault them in about 500 times less often. The pages are taken with madvise,
// so it works where the system leaves transparent huge pages to the program.

#ifdef DEVCTRL_TOOL_JEMALLOC
extern "C" {
// Read by jemalloc at its first allocation.
extern const char* malloc_conf;
const char* malloc_conf = "thp:always,metadata_thp:auto";
}
#endif
