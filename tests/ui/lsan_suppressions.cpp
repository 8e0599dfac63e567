// Leaks that the leak checker of the sanitized build reports in system libraries the window
// layer loads (font configuration, the session bus); they are not ours. The hook is read by
// the leak sanitizer only, and is an unused function in other builds.
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig\nleak:libdbus-1\n"; }
