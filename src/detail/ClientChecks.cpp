#include "detail/ClientChecks.h"

#include "data/ObjetoUtil.h"
#include "form518/WorkTables.h"
#include "values/Decimal.h"
#include "values/Text.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

const QString kNumero = u"TxtNumDoc"_s;
constexpr int kLargoRuc = 11;
constexpr int kLargoDni = 8;

/// Only code "01" is held to eight digits: wanted.
Veredicto ValidaDni(const DatosCliente& datos) {
    return CriticoSi(datos.codigo == u"01" && datos.numero.size() != kLargoDni, u"El DNI o LE debe ser de 8 digitos."_s,
                     kNumero);
}

Veredicto ValidaExistencia(const DatosCliente& datos) {
    if (Veredicto v = CriticoSi(datos.codigo.isEmpty(), u"Ingrese el tipo de documento."_s, u"CmbTipDoc"_s); !v)
        return v;
    return CriticoSi(datos.numero.isEmpty(), u"Ingrese el número de documento."_s, kNumero);
}

Veredicto ValidaCero(const DatosCliente& datos) {
    return CriticoSi(EsNumericoCero(datos.numero), u"El número de documento no puede ser cero"_s, kNumero);
}

Veredicto ValidaNombres(const DatosCliente& datos) {
    const QString nombres = u"TxtNombres"_s;
    if (datos.EsDeEmpresa())
        return CriticoSi(datos.nombres.isEmpty(), u"Ingrese la Razón Social."_s, nombres);
    if (Veredicto v = CriticoSi(datos.apellidoP.isEmpty(), u"Ingrese el apellido paterno."_s, u"TxtApePat"_s); !v)
        return v;
    return CriticoSi(datos.nombres.isEmpty(), u"Ingrese los nombres."_s, nombres);
}

} // namespace

ClaveCliente DatosCliente::Clave() const {
    return {codigo.toInt(), numero};
}

bool DatosCliente::EsDeEmpresa() const {
    return EsEmpresa(codigo, numero);
}

NombresCliente DatosCliente::Nombres() const {
    if (EsDeEmpresa())
        return {true, nombres, {}, {}, {}};
    return {false, {}, apellidoP, apellidoM, nombres};
}

Veredicto ValidaRucDeCliente(const QString& numero, const QString& docDeclarante) {
    const bool valido = numero.size() == kLargoRuc && ObjetoUtil::ValidaRUC(Recorta(numero));
    if (Veredicto v = CriticoSi(!valido, u"El RUC no es Válido."_s, kNumero); !v)
        return v;
    return CriticoSi(numero == docDeclarante, u"El RUC no puede ser igual al del declarante."_s, kNumero);
}

Veredicto ValidaParaAceptar(const DatosCliente& datos, const QString& docDeclarante) {
    if (datos.EsRuc()) {
        const Veredicto ruc = ValidaRucDeCliente(datos.numero, docDeclarante);
        return ruc ? ValidaNombres(datos) : ruc;
    }
    for (const auto& chequeo : {ValidaExistencia, ValidaDni, ValidaCero}) {
        if (Veredicto v = chequeo(datos); !v)
            return v;
    }
    return ValidaNombres(datos);
}

Veredicto ValidaParaComprobante(const DatosCliente& datos, const QString& docDeclarante,
                                const std::function<bool()>& yaRegistrado) {
    if (datos.EsRuc()) {
        if (Veredicto v = ValidaRucDeCliente(datos.numero, docDeclarante); !v)
            return v;
    } else {
        for (const auto& chequeo : {ValidaExistencia, ValidaCero}) {
            if (Veredicto v = chequeo(datos); !v)
                return v;
        }
    }
    if (yaRegistrado())
        return ClienteRegistrado(datos);
    const Veredicto nombres = ValidaNombres(datos);
    return nombres ? ValidaDni(datos) : nombres;
}

Veredicto ValidaAlTeclear(const DatosCliente& datos, const QString& docDeclarante,
                          const std::function<bool()>& yaRegistrado) {
    if (datos.EsRuc()) {
        if (datos.numero.size() != kLargoRuc)
            return Veredicto::Bien();
        if (Veredicto v = ValidaRucDeCliente(datos.numero, docDeclarante); !v)
            return v;
    }
    return yaRegistrado() ? ClienteRegistrado(datos) : Veredicto::Bien();
}

Veredicto ClienteRegistrado(const DatosCliente& datos) {
    return Veredicto::Critico(datos.EsRuc() ? u"El RUC del agente de percepción ya se registró."_s
                                            : u"El documento del agente de percepción ya se registró."_s,
                              kNumero);
}

} // namespace xa518
