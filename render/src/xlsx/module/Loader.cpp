#include <array>
#include <climits>
#include <dlfcn.h>
#include <filesystem>
#include <stdexcept>
#include <string>

#include <lakresvos/render/OutputFile.h>

#include "xlsx/Renderer.h"
#include "xlsx/module/Module.h"

namespace lakresvos::render {

// Null in the library, which loads the module instead; programs may have it built in.
[[gnu::weak]] void WriteXlsx(OmOutputTree const& tree, std::ostream& out,
                             XlsxOptions const& options);

namespace {

constexpr char kModule[] = LAKRESVOS_RENDER_XLSX_MODULE;

/// The module is where this library is, wherever that is; the loader knows the whole path even when
/// it found the library by a relative one and the process has another directory since.
std::string FindModule() {
  Dl_info here{};
  if (::dladdr(kModule, &here) == 0) {
    return kModule;
  }
  std::filesystem::path folder = std::filesystem::path(here.dli_fname).parent_path();
  if (void* const library = ::dlopen(here.dli_fname, RTLD_LAZY | RTLD_NOLOAD)) {
    std::array<char, 2UL * PATH_MAX> origin{};  // of the process's directory and the relative path
    if (::dlinfo(library, RTLD_DI_ORIGIN, origin.data()) == 0) {
      folder = origin.data();
    }
    ::dlclose(library);
  }
  return folder / kModule;
}

XlsxFunction* Load() {
  void* const module = ::dlopen(FindModule().c_str(), RTLD_NOW | RTLD_LOCAL);
  void* const write = module != nullptr ? ::dlsym(module, kXlsxFunction) : nullptr;
  if (write == nullptr) {
    throw std::runtime_error(std::string("cannot write workbooks: ") + ::dlerror());
  }
  return reinterpret_cast<XlsxFunction*>(write);
}

XlsxFunction* FindFunction() {
  return WriteXlsx != nullptr ? &WriteXlsx : Load();
}

}  // namespace

void RenderXlsx(OmOutputTree const& tree, std::ostream& out, XlsxOptions const& options) {
  static XlsxFunction* const write = FindFunction();
  write(tree, out, options);
}

void RenderXlsx(OmOutputTree const& tree, std::filesystem::path const& file,
                XlsxOptions const& options) {
  OutputFile out(file);
  RenderXlsx(tree, out.Stream(), options);
  out.Commit();
}

}  // namespace lakresvos::render
