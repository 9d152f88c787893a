// What declarations.txt lists, as a host would write it.

#include "all_headers.h"

#include <QtWidgets>

#include <fstream>
#include <type_traits>

namespace {

// Where it is called the linker has to find what is pointed to.
template <typename Pointer>
void use(Pointer pointer)
{
    volatile Pointer kept = pointer;
    (void)kept;
}

} // namespace

int main()
{
#include "declarations.h"
    return 0;
}
