#ifndef LAKRESVOS_RENDER_CSV_UNIQUENAMES_H
#define LAKRESVOS_RENDER_CSV_UNIQUENAMES_H

#include <set>
#include <string>

namespace lakresvos::render {

/// Tells names apart that are the same.
class UniqueNames {
 public:
  /// The name itself the first time, then with a number: "name 2".
  std::string Next(std::string const& name) {
    std::string unique = name;
    for (int number = 2; !taken_.insert(unique).second; ++number) {
      unique = name + " " + std::to_string(number);
    }
    return unique;
  }

 private:
  std::set<std::string> taken_;
};

}  // namespace lakresvos::render

#endif
