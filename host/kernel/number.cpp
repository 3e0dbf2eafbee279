#include <windows.h>

#include "host/kernel/call.h"

int WINAPI MulDiv(int number, int numerator, int denominator)
{
    HOST_CALL_VOID(MulDiv);
    constexpr int kFailed = -1;
    if (denominator == 0)
        return kFailed;
    const int64_t product = static_cast<int64_t>(number) * numerator;
    const int64_t half = (denominator < 0 ? -static_cast<int64_t>(denominator) : denominator) / 2;
    const int64_t rounded = (product < 0 ? product - half : product + half) / denominator;
    return rounded > INT32_MAX || rounded < -INT32_MAX ? kFailed : static_cast<int>(rounded);
}
