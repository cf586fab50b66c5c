#include <dlfcn.h>
#include <iostream>

int main() {
  void* const plugin = dlopen(PLUGIN_FILE, RTLD_NOW | RTLD_LOCAL);
  if (plugin == nullptr) {
    std::cerr << dlerror() << "\n";
    return 1;
  }
  const auto showScreen = reinterpret_cast<void (*)()>(dlsym(plugin, "showScreen"));
  if (showScreen == nullptr) {
    std::cerr << dlerror() << "\n";
    return 1;
  }
  showScreen();
}
