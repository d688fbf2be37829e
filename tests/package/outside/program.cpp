#include <iostream>
#include <memory>
#include <vector>
#include <zels.h>

int main()
{
    const std::vector<Zel32f> a{2.0f, 5.0f, 10.0f};
    const std::vector<Zel32f> b{0.5f, 1.5f, 2.5f};
    {
        const std::unique_ptr<Zel32f, decltype(&zelsFree)> sum(zelsMalloc_32f(3), zelsFree);
        if (!sum || zelsAdd_32f(a.data(), b.data(), sum.get(), 3) != zelStatusOk)
            return 1;
        std::cout << sum.get()[0] << ' ' << sum.get()[1] << ' ' << sum.get()[2] << ", ";
    }
    const ZelStatus null = zelsAdd_32f(a.data(), b.data(), nullptr, 3);
    std::cout << "released, status " << null << " of a null pointer\n";
    return null != zelErrNullPtr;
}
