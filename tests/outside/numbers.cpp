#include <core/SplineBase.h>

#if __has_include(<QtGlobal>)
#error "the toolkit is on the include path"
#endif

int main()
{
    SplineBase spline;
    spline.addPoint(0.0, 1.0);
    spline.addPoint(2.0, 5.0);
    return spline(2.0) == 5.0 ? 0 : 1;
}
