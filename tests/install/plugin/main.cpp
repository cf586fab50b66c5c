// Loads the plugin, and calls its functions on a thread that is not the first one of the process.
#include <cstdlib>
#include <dlfcn.h>
#include <iostream>
#include <thread>

void call(void* plugin, const char* name) {
  const auto function = reinterpret_cast<void (*)()>(dlsym(plugin, name));
  if (function == nullptr) {
    std::cerr << dlerror() << "\n";
    std::exit(1);
  }
  function();
}

int main() {
  void* const plugin = dlopen(PLUGIN_FILE, RTLD_NOW | RTLD_LOCAL);
  if (plugin == nullptr) {
    std::cerr << dlerror() << "\n";
    return 1;
  }
  std::thread userInterface([plugin] {
    call(plugin, "showScreen");
    call(plugin, "recordScreen");
  });
  userInterface.join();
}
