#include "detail/VoucherTypes.h"

#include "data/Base.h"
#include "form518/FormCatalogs.h"
#include "values/Format.h"
#include "values/Text.h"

#include <functional>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLargoDescripcion = 40;
const QString kNotaDeCredito = u"07"_s;

QStringList Lista(Base& base, const std::function<bool(const QString&)>& entra) {
    Registros filas = base.Lee(u"SELECT argumento, funcion FROM PARAM WHERE numero='233' AND "
                               "%1='1'"_s.arg(TramosTipoComprobante::kUso.Sql(u"FUNCION")));
    QStringList items;
    while (filas.Siguiente()) {
        const QString codigo = filas.Texto(0);
        if (entra(codigo))
            items.append(codigo + u"   "_s + filas.Texto(1).leftJustified(kLargoDescripcion, u' ', true));
    }
    return items;
}

} // namespace

QStringList TiposDeContado(Base& base) {
    return Lista(base, [](const QString& codigo) { return codigo != kNotaDeCredito; });
}

QStringList TiposDePago(Base& base, const QString& lblTipo) {
    if (lblTipo != u"1" && lblTipo != u"2")
        return Lista(base, [](const QString& codigo) { return codigo != u"01"; });
    static const QStringList conCredito{u"01"_s, kNotaDeCredito, u"08"_s, u"12"_s};
    return Lista(base, [](const QString& codigo) { return conCredito.contains(codigo); });
}

QString CodigoDeItem(QStringView item) {
    return Recorta(item.left(2)).toString();
}

QString DescripcionDeItem(QStringView item) {
    return Recorta(item.right(kLargoDescripcion)).toString();
}

int LimiteDeNumero(QStringView tipo) {
    return tipo == u"99" ? 15 : 8;
}

Contestacion CreditoDe(QStringView tipo) {
    if (tipo == u"08" || tipo == u"12")
        return std::nullopt;
    return tipo == u"01";
}

const MontoDePago& MontoDe(QStringView tipo) {
    static const MontoDePago notaDeCredito{17, 14, 11, u"##########0.#0"_s, u"99999999999.99"_s};
    static const MontoDePago otros{18, 15, 12, u"###########0.#0"_s, u"999999999999.99"_s};
    return tipo == kNotaDeCredito ? notaDeCredito : otros;
}

QString LimitaMontoDePago(QStringView tipo, const QString& monto) {
    const MontoDePago& limites = MontoDe(tipo);
    const Decimal valor = Decimal::Valor(Format(monto, limites.mascara));
    return valor > Decimal::Valor(limites.tope) ? limites.tope : monto;
}

MontoEscrito MontoGuardado(QStringView tipo, const QString& monto, bool esAlta) {
    constexpr QStringView kMascara = u"############.#0";
    if (tipo != kNotaDeCredito)
        return MontoEscrito(Format(monto, kMascara));
    const Decimal valor = Decimal::Lee(monto).value_or(Decimal()).Opuesto();
    return MontoEscrito(Format(valor, esAlta ? kMascara : QStringView(u"###########.#0")));
}

QString MontoEditado(QStringView tipo, const MontoEscrito& guardado) {
    return tipo == kNotaDeCredito ? guardado.Valor().Absoluto().Texto() : guardado.Texto();
}

QString MontoEnGrilla(const QString& guardado) {
    const Decimal valor = Decimal::Valor(guardado);
    if (valor.Signo() > 0)
        return Format(valor, u"###,###,###,##0.#0");
    return Format(valor.Absoluto(), u"(##,###,###,##0.#0)");
}

} // namespace xa518
