#include "chart/ChartModule.h"

#include <dlfcn.h>
#include <filesystem>
#include <stdexcept>

#include <lakresvos/tabulate/Formula.h>

#include "chart/DrawingModule.h"

namespace lakresvos::report {

namespace {

/// The module is where the library for tabulation is, wherever that is.
std::string FindModule() {
  Dl_info library{};
  if (::dladdr(reinterpret_cast<void const*>(&tabulate::ParseFormula), &library) == 0) {
    return kDrawingModule;
  }
  return std::filesystem::path(library.dli_fname).replace_filename(kDrawingModule);
}

DrawingFunction* Load() {
  void* const module = ::dlopen(FindModule().c_str(), RTLD_NOW | RTLD_LOCAL);
  void* const draw = module != nullptr ? ::dlsym(module, kDrawingFunction) : nullptr;
  if (draw == nullptr) {
    throw std::runtime_error(std::string("cannot draw charts: ") + ::dlerror());
  }
  return reinterpret_cast<DrawingFunction*>(draw);
}

}  // namespace

std::string LoadAndDrawBarChart(render::ChartData const& data) {
  static DrawingFunction* const draw = Load();
  std::string picture;
  draw(data, picture);
  return picture;
}

}  // namespace lakresvos::report
