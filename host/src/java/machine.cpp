#include "../ut/ownLibrary.h"

#include <java/machine.h>

#include <dlfcn.h>
#include <glob.h>
#include <jni.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace vghost {

JavaUnavailable::~JavaUnavailable() = default;

namespace {

namespace fs = std::filesystem;

using CreateMachine = jint (*)(JavaVM** machine, void** environment, void* arguments);

/// A Java library that was loaded, and the file that it was loaded from. It is never unloaded.
struct JavaLibrary {
  CreateMachine createMachine = nullptr;
  std::string file;
};

std::vector<std::string> filesThatMatch(const std::string& pattern) {
  glob_t found{};
  struct Free {
    void operator()(glob_t* files) const { globfree(files); }
  };
  const std::unique_ptr<glob_t, Free> owner(&found);
  if (glob(pattern.c_str(), 0, nullptr, &found) != 0) return {};
  return {found.gl_pathv, found.gl_pathv + found.gl_pathc};
}

/// In the order in which they are tried.
std::vector<std::string> candidates() {
  const std::string inHome = "/lib/server/libjvm.so";
  std::vector<std::string> files;
  if (const char* home = std::getenv("JAVA_HOME"); home && *home) files.push_back(home + inHome);
  for (const char* homes : {"default-java", "java-17-openjdk-*", "*"})
    for (std::string& file : filesThatMatch(std::string("/usr/lib/jvm/") + homes + inHome))
      files.push_back(std::move(file));
  files.emplace_back("libjvm.so");
  return files;
}

JavaLibrary loadJava() {
  for (const std::string& file : candidates())
    if (void* const library = dlopen(file.c_str(), RTLD_LAZY))
      if (void* const create = dlsym(library, "JNI_CreateJavaVM"))
        return {reinterpret_cast<CreateMachine>(create), file};
  throw JavaUnavailable(
      "no Java machine was found: install the package openjdk-17-jdk-headless, or let JAVA_HOME "
      "name one");
}

/// The jar of the Java classes, as it is built and as it is installed; empty if it is not there.
fs::path findJar(const fs::path& directory) {
  for (const char* place : {"../java", "vghost/java"}) {
    fs::path jar = directory / place / "vgdatatypes-host.jar";
    if (std::error_code failure; fs::exists(jar, failure)) return jar;
  }
  return {};
}

std::vector<std::string> optionsFor(const fs::path& library) {
  std::vector<std::string> options = {"-Xrs", "-Djava.awt.headless=true"};
  if (library.empty()) return options;
  options.push_back("-Dvghost.library=" + library.string());
  if (const fs::path jar = findJar(library.parent_path()); !jar.empty())
    options.push_back("-Djava.class.path=" + jar.string());
  return options;
}

void startMachine() {
  const JavaLibrary java = loadJava();
  std::error_code failure;
  std::vector<std::string> texts = optionsFor(fs::canonical(ownLibrary(), failure));
  std::vector<JavaVMOption> options(texts.size());
  std::ranges::transform(texts, options.begin(), [](std::string& text) {
    return JavaVMOption{text.data(), nullptr};
  });
  JavaVMInitArgs arguments{JNI_VERSION_1_8, static_cast<jint>(options.size()), options.data(),
                           JNI_FALSE};
  JavaVM* machine = nullptr;
  void* environment = nullptr;
  if (const jint status = java.createMachine(&machine, &environment, &arguments); status != JNI_OK)
    throw JavaUnavailable("the Java machine in " + java.file + " did not start (error " +
                          std::to_string(status) +
                          "): look at JAVA_TOOL_OPTIONS, or let JAVA_HOME name another one");
}

}  // namespace

JNIEnv& startJava() {
  if (JNIEnv* const running = GetJNIEnv()) return *running;
  startMachine();
  if (JNIEnv* const started = GetJNIEnv()) return *started;
  throw JavaUnavailable("this thread cannot be attached to the Java machine");
}

}  // namespace vghost
