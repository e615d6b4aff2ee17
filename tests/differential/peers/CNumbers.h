#pragma once

#include <clocale>
#include <string>

namespace peers {

/// Decimal points for as long as it lives: under a comma locale, the peers write and expect commas.
class CNumbers
{
public:
    CNumbers()
        : before(std::setlocale(LC_NUMERIC, nullptr))
    {
        std::setlocale(LC_NUMERIC, "C");
    }
    ~CNumbers() { std::setlocale(LC_NUMERIC, before.c_str()); }
    CNumbers(CNumbers const&) = delete;
    CNumbers& operator=(CNumbers const&) = delete;

private:
    std::string before;
};

} // namespace peers
