// The guide as it stands in the repository.
#pragma once

#include <string>

#include "guide/guide.h"

namespace tidewarden::test {

// The content of a file of the guide, wherever in the repository it lies; empty when there is none.
[[nodiscard]] std::string ReadGuideFile(const std::string& fileName);

// Read once.
[[nodiscard]] const Guide& RepositoryGuide();

}  // namespace tidewarden::test
