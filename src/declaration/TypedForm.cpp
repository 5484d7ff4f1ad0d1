#include "declaration/TypedForm.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPestanias = 3;

/// Whether all of them are texts.
bool SonTextos(const QJsonObject& objeto, std::initializer_list<QStringView> claves) {
    return std::ranges::all_of(claves, [&](QStringView clave) { return objeto.value(clave).isString(); });
}

QJsonObject EnObjeto(const Montos& montos) {
    QJsonObject casillas;
    for (const int casilla : kCasillasMonto)
        casillas.insert(QString::number(casilla), montos.Texto(casilla));
    return casillas;
}

/// In the form's own order, so that the arithmetic ends as it stood.
std::optional<Montos> MontosDe(const QJsonObject& casillas) {
    Montos montos;
    for (const int casilla : kCasillasMonto) {
        const QJsonValue texto = casillas.value(QString::number(casilla));
        if (!texto.isString())
            return std::nullopt;
        montos.Cambia(casilla, texto.toString().isEmpty() ? QString() : TextoAlSalir(casilla, texto.toString()));
    }
    return montos;
}

} // namespace

QString LoEscrito::EnJson() const {
    const QJsonObject objeto{
        {u"periodo"_s, periodo},
        {u"claveFija"_s, claveFija},
        {u"casillas"_s, EnObjeto(montos)},
        {u"pago"_s,
         QJsonObject{{u"forma"_s, Letra(pago.forma)}, {u"banco"_s, pago.banco}, {u"cheque"_s, pago.numeroCheque}}},
        {u"rectifica"_s, Digito(rectifica)},
        {u"pestania"_s, pestania}};
    return QString::fromUtf8(QJsonDocument(objeto).toJson(QJsonDocument::Compact));
}

std::optional<LoEscrito> LoEscrito::DeJson(const QString& json) {
    const QJsonObject objeto = QJsonDocument::fromJson(json.toUtf8()).object();
    const QJsonObject pago = objeto.value(u"pago").toObject();
    const std::optional<Montos> montos = MontosDe(objeto.value(u"casillas").toObject());
    const int pestania = objeto.value(u"pestania").toInt(-1);
    if (!montos || pestania < 0 || pestania >= kPestanias || !objeto.value(u"claveFija").isBool() ||
        !SonTextos(objeto, {u"periodo", u"rectifica"}) || !SonTextos(pago, {u"forma", u"banco", u"cheque"}))
        return std::nullopt;
    return LoEscrito{.periodo = objeto.value(u"periodo").toString(),
                     .claveFija = objeto.value(u"claveFija").toBool(),
                     .montos = *montos,
                     .pago = {.forma = FormaDeLetra(pago.value(u"forma").toString()),
                              .banco = pago.value(u"banco").toString(),
                              .numeroCheque = pago.value(u"cheque").toString()},
                     .rectifica = RectificacionDe(objeto.value(u"rectifica").toString()),
                     .pestania = pestania};
}

} // namespace xa518
