// A library that is loaded at run time, as a host loads its plug-ins.
#ifndef ZEMVA_TOOLS_COMMANDS_PLUGIN_LIBRARY_H
#define ZEMVA_TOOLS_COMMANDS_PLUGIN_LIBRARY_H

#include <string>

namespace zemva::tools {

class PluginLibrary {
 public:
  // Throws std::runtime_error when the library cannot be loaded.
  explicit PluginLibrary(const std::string& path);
  PluginLibrary(const PluginLibrary&) = delete;
  PluginLibrary& operator=(const PluginLibrary&) = delete;
  ~PluginLibrary();

  // The function of that name. Throws std::runtime_error when there is none.
  template <class Function>
  Function* Find(const char* name) const {
    return reinterpret_cast<Function*>(FindAddress(name));
  }

 private:
  using Address = void (*)();
  Address FindAddress(const char* name) const;

  std::string path_;
  void* handle_;
};

// The plug-in that belongs to this program: the library beside it, or where it is installed.
std::string DefaultPluginPath();

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_COMMANDS_PLUGIN_LIBRARY_H
