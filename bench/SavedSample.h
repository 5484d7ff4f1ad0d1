#pragma once

#include "family/DeclarationKey.h"
#include "form518/Form0518.h"
#include "support/TemporaryBase.h"

namespace xa518::medida {

inline const ClaveDeclaracion kClave{
    .ruc = Ruc(u"20990518018"), .periodo = Periodo(2026, 10), .formulario = kNumFormulario};

/// Clients, each with that many vouchers, each with a payment voucher.
struct Detalle {
    int clientes;
    int comprobantes;
};

/// A base whose work tables hold a declaration of that size.
struct TallerGuardado {
    explicit TallerGuardado(const Detalle& detalle);
    prueba::BaseTemporal base;
};

/// Saves it, clean and paid in cash.
void Graba(Base& base);

} // namespace xa518::medida
