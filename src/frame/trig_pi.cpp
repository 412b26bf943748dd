// The four trigonometric functions of planning. They live in a file of their
// own and are called out of line, so the argument always arrives rounded to
// its declared width, and the product is rounded again as it is passed on.
#include "frame/trig_pi.h"

#include <math.h>

namespace zptg {

namespace {
constexpr double kPi = 3.141592653589793;
}  // namespace

float zptgCosPi_32f(float x)
{
    const float angle = static_cast<float>(kPi * x);
    return cosf(angle);
}

float zptgSinPi_32f(float x)
{
    const float angle = static_cast<float>(kPi * x);
    return sinf(angle);
}

double zptgCosPi_64f(double x)
{
    const double angle = kPi * x;
    return cos(angle);
}

double zptgSinPi_64f(double x)
{
    const double angle = kPi * x;
    return sin(angle);
}

}  // namespace zptg
