#include "commands/plugin_library.h"

#include <filesystem>
#include <stdexcept>

#if defined(_WIN32)
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace zemva::tools {

namespace fs = std::filesystem;

#if defined(_WIN32)

PluginLibrary::PluginLibrary(const std::string& path)
    : path_(path), handle_(LoadLibraryA(path.c_str())) {
  if (handle_ == nullptr) {
    throw std::runtime_error(path + " cannot be loaded (" + std::to_string(GetLastError()) + ")");
  }
}

PluginLibrary::~PluginLibrary() {
  FreeLibrary(static_cast<HMODULE>(handle_));
}

PluginLibrary::Address PluginLibrary::FindAddress(const char* name) const {
  const FARPROC address = GetProcAddress(static_cast<HMODULE>(handle_), name);
  if (address == nullptr) throw std::runtime_error(path_ + " has no " + name);
  return reinterpret_cast<Address>(address);
}

std::string DefaultPluginPath() {
  wchar_t program[MAX_PATH] = L"";
  GetModuleFileNameW(nullptr, program, MAX_PATH);
  return (fs::path(program).parent_path() / "zemva.dll").string();
}

#else

PluginLibrary::PluginLibrary(const std::string& path)
    : path_(path), handle_(dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL)) {
  if (handle_ == nullptr) throw std::runtime_error(dlerror());
}

PluginLibrary::~PluginLibrary() {
  dlclose(handle_);
}

PluginLibrary::Address PluginLibrary::FindAddress(const char* name) const {
  void* address = dlsym(handle_, name);
  if (address == nullptr) throw std::runtime_error(path_ + " has no " + name);
  return reinterpret_cast<Address>(address);
}

std::string DefaultPluginPath() {
  std::error_code error;
  const fs::path folder = fs::read_symlink("/proc/self/exe", error).parent_path();
  for (const fs::path& beside : {folder, folder.parent_path() / ZEMVA_INSTALL_LIBDIR}) {
    const fs::path library = beside / "libzemva.so";
    if (fs::exists(library, error)) return library;
  }
  return "libzemva.so";
}

#endif

}  // namespace zemva::tools
