#pragma once

#include "data/Base.h"
#include "import/ImportFormat.h"

namespace xa518 {

/// A row that can't be added since its key stands there already is dropped, and the line goes on with the next one:
/// wanted, so rows that the line has written, and those that it still writes, stay.
template <typename Alta>
void Intenta(Objeciones& objeciones, const Alta& alta) {
    try {
        alta();
    } catch (const ErrorBase& error) {
        if (!error.Es(NumeroError::ClaveDuplicada))
            throw;
        objeciones.append(kClaveDuplicada);
    }
}

} // namespace xa518
