// Prints the page of the events file on standard input to standard output, in the layout
// MM/dd/yyyy, for tests that read pages back.
#include <iostream>
#include <iterator>

#include "tests/editor/page_cases.h"

int main() {
  tidewarden::test::PageCase page;
  page.events.assign(std::istreambuf_iterator<char>(std::cin), {});
  std::cout << tidewarden::test::PageOf(page);
  return std::cout.flush() ? 0 : 1;
}
