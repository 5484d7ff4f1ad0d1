#include "form518/WorkTables.h"
#include "import/FieldChecks.h"
#include "import/FieldRules.h"
#include "values/Decimal.h"
#include "values/ObjetoUtil.h"
#include "values/Text.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLargoNombre = 20;
constexpr int kLargoOtroDoc = 12;

Codigo CompruebaRuc(const QString& campo, const ContextoImportacion& contexto) {
    if (campo == contexto.docDeclarante.Texto())
        return "0221"_L1;
    return ObjetoUtil::ValidaRUC(campo) ? kAceptado : "0001"_L1;
}

/// Wanted: an empty number passes for the types that have no fixed length: only that can be missed.
Codigo CompruebaOtroDoc(const QString& campo, bool esDni) {
    const bool cabe = esDni ? campo.size() == kLargoDni : campo.size() <= kLargoOtroDoc;
    return cabe && !EsNumericoCero(campo) ? kAceptado : "0010"_L1;
}

Codigo LimpiaNombre(QString& campo) {
    if (campo.contains(u'Ñ') || campo.contains(u'ñ'))
        campo = ObjetoUtil::QuitaEnie(Recorta(campo).toString());
    return ObjetoUtil::ValidaCaracteres(campo) ? kAceptado : "0239"_L1;
}

/// A company has a single name: the fields of a person's stay empty.
Codigo SoloDePersona(const QString& campo) {
    return campo.isEmpty() ? kAceptado : "0993"_L1;
}

} // namespace

Codigo CompruebaTipoDoc(QString& campo, LineaComprobada& linea, const ContextoImportacion& /*contexto*/) {
    if (campo.size() > 2)
        return "0888"_L1;
    if (!EstaEnLista(campo, u"01-02-03-04-06-07"))
        return "0009"_L1;
    linea.PonTipoDoc(campo);
    return kAceptado;
}

Codigo CompruebaNumDoc(QString& campo, LineaComprobada& linea, const ContextoImportacion& contexto) {
    const Codigo codigo = linea.tipoDocLinea == u'6' ? CompruebaRuc(campo, contexto)
                                                     : CompruebaOtroDoc(campo, linea.tipoDocLinea == u'1');
    linea.clienteEsEmpresa = EsEmpresa(CodigoDocumento::De(linea.tipoDocLinea), campo);
    return codigo;
}

Codigo CompruebaRazonSocial(QString& campo, LineaComprobada& linea, const ContextoImportacion& /*contexto*/) {
    if (!linea.clienteEsEmpresa)
        return campo.isEmpty() ? kAceptado : "0992"_L1;
    if (campo.isEmpty())
        return "0003"_L1;
    campo.truncate(kLargoRazon);
    return LimpiaNombre(campo);
}

Codigo CompruebaApellidoPaterno(QString& campo, LineaComprobada& linea, const ContextoImportacion& /*contexto*/) {
    if (linea.clienteEsEmpresa)
        return SoloDePersona(campo);
    if (campo.isEmpty())
        return "0853"_L1;
    return campo.size() > kLargoNombre ? "0889"_L1 : LimpiaNombre(campo);
}

Codigo CompruebaApellidoMaterno(QString& campo, LineaComprobada& linea, const ContextoImportacion& /*contexto*/) {
    if (linea.clienteEsEmpresa)
        return SoloDePersona(campo);
    return campo.size() > kLargoNombre ? "0889"_L1 : LimpiaNombre(campo);
}

/// Wanted: unlike a surname, the first names are cut without a word, as the full name is.
Codigo CompruebaNombres(QString& campo, LineaComprobada& linea, const ContextoImportacion& /*contexto*/) {
    if (linea.clienteEsEmpresa)
        return SoloDePersona(campo);
    if (campo.isEmpty())
        return "0855"_L1;
    campo.truncate(kLargoNombre);
    return LimpiaNombre(campo);
}

} // namespace xa518
