#include "data/DocumentTypes.h"

#include "data/Base.h"
#include "data/Catalog.h"
#include "values/Decimal.h"
#include "values/ObjetoUtil.h"
#include "values/Text.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// Stands in for a missing row of the RUC. Its column 130 says "0", a maximum, so it adds no length filter. Wanted:
/// an incomplete catalogue hides no declarant.
const QString& FilaRucPorDefecto() {
    static const QString fila = u"REG. UNICO DE CONTRIBUYENTES   RUC           11 000110 01 000001000001100111011111"
                                "                                           0 5 0"_s;
    return fila;
}

TipoDocumento Corta(CodigoDocumento codigo, QStringView funcion) {
    return {.codigo = codigo,
            .corto = TramosDocumento::kCorto.Corta(funcion).toString(),
            .lenDoc = TramosDocumento::kLargo.Corta(funcion).toString(),
            .tipoDato = TramosDocumento::kTipoDato.Corta(funcion).toString(),
            .tipoLongitud = TramosDocumento::kTipoLongitud.Corta(funcion).toString()};
}

bool LargoValido(const TipoDocumento& tipo, qsizetype largo) {
    return Decimal::Valor(tipo.tipoLongitud).Signo() == 0 ? largo <= tipo.Largo() : largo == tipo.Largo();
}

} // namespace

int TipoDocumento::Largo() const {
    return Recorta(lenDoc).toInt();
}

QList<TipoDocumento> DocumentosOfrecidos(Base& base, const Tramo& uso) {
    Registros filas = base.Lee(u" SELECT format(trim(Par1.Argumento),'00') as Codigo, Par1.Funcion"
                               " FROM Param as Par1 "
                               " WHERE Par1.Numero = '044' and %1='1' "
                               " Order By %2"_s.arg(uso.Sql(u"Funcion"), TramosDocumento::kOrden.Sql(u"Funcion")));
    QList<TipoDocumento> tipos;
    while (filas.Siguiente())
        tipos.append(Corta(CodigoDocumento::De(filas.Texto(0)), filas.Texto(1)));
    return tipos;
}

std::optional<TipoDocumento> DocumentoDeTipo(Base& base, CodigoDocumento codigo) {
    const QString funcion = Catalogo(base).Funcion(u"044"_s, QString::number(codigo.Valor()));
    if (funcion.isEmpty())
        return std::nullopt;
    return Corta(codigo, funcion);
}

bool AdmiteNumero(const TipoDocumento& tipo, const QString& numero) {
    const QStringView recortado = Recorta(numero);
    if (recortado.isEmpty() || !LargoValido(tipo, recortado.size()))
        return false;
    return Decimal::Valor(tipo.tipoDato).Signo() != 0 ? ObjetoUtil::ValidaTextoDoc(numero)
                                                      : ObjetoUtil::ValidaNumeroDoc(numero);
}

bool ValidaDocumento(Base& base, const Documento& documento) {
    if (documento.tipo.EstaVacio())
        return false;
    const std::optional<TipoDocumento> fila = DocumentoDeTipo(base, documento.tipo);
    return fila && AdmiteNumero(*fila, documento.numero);
}

TipoDocumento TipoDelRuc(Base& base) {
    constexpr CodigoDocumento kRuc(6);
    const QString guardada = Catalogo(base).Funcion(u"044"_s, QString::number(kRuc.Valor()));
    return Corta(kRuc, guardada.isEmpty() ? FilaRucPorDefecto() : guardada);
}

} // namespace xa518
