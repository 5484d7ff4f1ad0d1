#include "detail/ClientLayout.h"

#include "data/DocumentTypes.h"
#include "values/Decimal.h"
#include "values/ObjetoUtil.h"
#include "values/Text.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr QChar kRetroceso(8);

} // namespace

Disposicion AlElegirTipo(const DatosCliente& datos) {
    return datos.EsRuc() && !datos.numero.startsWith(u"10"_s) ? Disposicion::Empresa : Disposicion::Persona;
}

std::optional<Disposicion> AlTeclearNumero(const DatosCliente& datos) {
    if (datos.EsDeEmpresa())
        return Disposicion::Empresa;
    if (datos.numero.size() < 2)
        return std::nullopt;
    return Disposicion::Persona;
}

AspectoNombres AspectoDe(Disposicion disposicion) {
    if (disposicion == Disposicion::Empresa)
        return {u"Razón Social :"_s, false, 40};
    return {u"Nombres :"_s, true, 20};
}

QString ItemDe(const TipoDocumento& tipo) {
    return tipo.codigo.Texto() + u"  -  "_s + tipo.corto.leftJustified(60, u' ', true) +
           tipo.lenDoc.leftJustified(2, u' ') + u' ' + tipo.tipoDato + u' ' + tipo.tipoLongitud;
}

ReglaDeNumero ReglaDe(QStringView item) {
    return {.limite = Recorta(TramosItemDocumento::kLargo.Corta(item)).toInt(),
            .soloDigitos = Decimal::Valor(TramosItemDocumento::kTipoDato.Corta(item)).Signo() != 0};
}

int FiltraTeclaDocumento(int tecla, const ReglaDeNumero& regla) {
    const QChar mayuscula = QChar(static_cast<char16_t>(tecla)).toUpper();
    const bool pasa = mayuscula == kRetroceso || EsDigito(mayuscula) || (!regla.soloDigitos && EsLetra(mayuscula));
    return pasa ? mayuscula.unicode() : 0;
}

QString TeclasDeDocumento(const ReglaDeNumero& regla) {
    return regla.soloDigitos ? u"Sólo números"_s : u"Sólo letras y números"_s;
}

} // namespace xa518
