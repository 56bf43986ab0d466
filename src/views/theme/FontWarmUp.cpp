#include "views/theme/FontWarmUp.h"

#include <dlfcn.h>

namespace {

// By name, since only Qt links the library, and without Qt's own loader, which must not be the first to
// run on a thread that is not the main one. Without the library there is nothing to read.
void readConfiguration()
{
    void *library = dlopen("libfontconfig.so.1", RTLD_LAZY);
    if (!library) return;
    using FcInit = int (*)();
    if (const auto init = reinterpret_cast<FcInit>(dlsym(library, "FcInit"))) init();
}

} // namespace

FontWarmUp::FontWarmUp() : m_thread(readConfiguration) {}

void FontWarmUp::finish()
{
    if (m_thread.joinable()) m_thread.join();
}
