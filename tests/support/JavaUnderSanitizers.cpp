// Linked into a program that starts Java, which handles faults of memory itself and never frees
// what it keeps. The leaks of all else are still found.

extern "C" {

[[gnu::visibility("default")]] const char* __asan_default_options() {  // NOLINT: the name is theirs
  return "handle_segv=0";
}

/// The detector of leaks does not get through what threads of Java's have of their own.
[[gnu::visibility("default")]] const char* __lsan_default_options() {  // NOLINT: likewise
  return "use_tls=0:print_suppressions=0";
}

[[gnu::visibility("default")]] const char* __lsan_default_suppressions() {  // NOLINT: likewise
  return "leak:libjvm.so\nleak:libzip.so\nleak:libz.so\n";
}

}  // extern "C"
