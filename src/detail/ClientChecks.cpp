#include "detail/ClientChecks.h"

#include "form518/WorkTables.h"
#include "values/Decimal.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr auto kNumero = CampoCliente::NumDoc;
constexpr int kLargoDni = 8;

/// Only code "01" is held to eight digits: wanted, other documents are as long as their type's row says.
VeredictoCliente ValidaDni(const DatosCliente& datos) {
    return VeredictoCliente::CriticoSi(datos.codigo.EsDni() && datos.numero.size() != kLargoDni,
                                       u"El DNI o LE debe ser de 8 digitos."_s, kNumero);
}

VeredictoCliente ValidaExistencia(const DatosCliente& datos) {
    if (VeredictoCliente v = VeredictoCliente::CriticoSi(datos.codigo.EstaVacio(), u"Ingrese el tipo de documento."_s,
                                                         CampoCliente::TipoDoc);
        !v)
        return v;
    return VeredictoCliente::CriticoSi(datos.numero.isEmpty(), u"Ingrese el número de documento."_s, kNumero);
}

VeredictoCliente ValidaCero(const DatosCliente& datos) {
    return VeredictoCliente::CriticoSi(EsNumericoCero(datos.numero), u"El número de documento no puede ser cero"_s,
                                       kNumero);
}

VeredictoCliente ValidaNombres(const DatosCliente& datos) {
    constexpr auto kNombres = CampoCliente::Nombres;
    if (datos.EsDeEmpresa())
        return VeredictoCliente::CriticoSi(datos.nombres.isEmpty(), u"Ingrese la Razón Social."_s, kNombres);
    if (VeredictoCliente v = VeredictoCliente::CriticoSi(datos.apellidoP.isEmpty(), u"Ingrese el apellido paterno."_s,
                                                         CampoCliente::ApellidoP);
        !v)
        return v;
    return VeredictoCliente::CriticoSi(datos.nombres.isEmpty(), u"Ingrese los nombres."_s, kNombres);
}

} // namespace

ClaveCliente DatosCliente::Clave() const {
    return {.tipoDoc = codigo, .numero = numero};
}

bool DatosCliente::EsDeEmpresa() const {
    return EsEmpresa(codigo, numero);
}

NombresCliente DatosCliente::Nombres() const {
    if (EsDeEmpresa())
        return {.razon = nombres};
    return {.razon = u" "_s, .apellidoP = apellidoP, .apellidoM = apellidoM, .nombres = nombres};
}

VeredictoCliente ValidaRucDeCliente(const QString& numero, const Ruc& docDeclarante) {
    const bool valido = numero.size() == Ruc::kLargo && Ruc(numero).EsValido();
    if (VeredictoCliente v = VeredictoCliente::CriticoSi(!valido, u"El RUC no es Válido."_s, kNumero); !v)
        return v;
    return VeredictoCliente::CriticoSi(numero == docDeclarante.Texto(),
                                       u"El RUC no puede ser igual al del declarante."_s, kNumero);
}

VeredictoCliente ValidaParaAceptar(const DatosCliente& datos, const Ruc& docDeclarante) {
    if (datos.EsRuc()) {
        const VeredictoCliente ruc = ValidaRucDeCliente(datos.numero, docDeclarante);
        return ruc ? ValidaNombres(datos) : ruc;
    }
    for (const auto& chequeo : {ValidaExistencia, ValidaDni, ValidaCero}) {
        if (VeredictoCliente v = chequeo(datos); !v)
            return v;
    }
    return ValidaNombres(datos);
}

VeredictoCliente ValidaParaComprobante(const DatosCliente& datos, const Ruc& docDeclarante,
                                       const std::function<bool()>& yaRegistrado) {
    if (datos.EsRuc()) {
        if (VeredictoCliente v = ValidaRucDeCliente(datos.numero, docDeclarante); !v)
            return v;
    } else {
        for (const auto& chequeo : {ValidaExistencia, ValidaCero}) {
            if (VeredictoCliente v = chequeo(datos); !v)
                return v;
        }
    }
    if (yaRegistrado())
        return ClienteRegistrado(datos);
    const VeredictoCliente nombres = ValidaNombres(datos);
    return nombres ? ValidaDni(datos) : nombres;
}

VeredictoCliente ValidaAlTeclear(const DatosCliente& datos, const Ruc& docDeclarante,
                                 const std::function<bool()>& yaRegistrado) {
    if (datos.EsRuc()) {
        if (datos.numero.size() != Ruc::kLargo)
            return Veredicto::Bien();
        if (VeredictoCliente v = ValidaRucDeCliente(datos.numero, docDeclarante); !v)
            return v;
    }
    return yaRegistrado() ? ClienteRegistrado(datos) : VeredictoCliente(Veredicto::Bien());
}

VeredictoCliente ClienteRegistrado(const DatosCliente& datos) {
    return VeredictoCliente::Critico(datos.EsRuc() ? u"El RUC del agente de percepción ya se registró."_s
                                                   : u"El documento del agente de percepción ya se registró."_s,
                                     kNumero);
}

} // namespace xa518
