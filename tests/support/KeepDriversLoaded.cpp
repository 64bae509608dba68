// Test and sanitizer builds only. Mesa unloads its driver before LeakSanitizer walks the
// heap, which turns the driver's own allocations into unsymbolised, unsuppressible leak
// reports. Keeping every shared object loaded keeps them attributable to the driver.
extern "C" int dlclose(void*) { return 0; }
