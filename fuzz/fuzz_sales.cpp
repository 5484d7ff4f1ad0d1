#include "Checkers.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t largo) {
    return xa518::fuzz::Comprueba(xa518::FormatoVentas(), bytes, largo);
}
