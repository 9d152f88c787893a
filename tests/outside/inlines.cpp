#include "all_headers.h"

int main()
{
    return 0;
}
