// Cosine and sine of pi times x, as planning evaluates its twiddles. Pi is
// the 64-bit constant in both widths; the product is rounded to the element
// width and handed to the mathematics library's cosf/sinf or cos/sin. No
// argument is reduced and exact multiples get no special case, so
// zptgCosPi_32f(0.5f) is about -4.37e-8, not zero.
#ifndef ZPTG_FRAME_TRIG_PI_H
#define ZPTG_FRAME_TRIG_PI_H

namespace zptg {

float zptgCosPi_32f(float x);
float zptgSinPi_32f(float x);
double zptgCosPi_64f(double x);
double zptgSinPi_64f(double x);

}  // namespace zptg

#endif
