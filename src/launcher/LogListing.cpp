#include "launcher/LogListing.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextStream>

#include <utility>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

QString EnCsv(const QStringList& campos) {
    QStringList citados;
    for (QString campo : campos)
        citados.append(u'"' + campo.replace(u'"', u"\"\""_s) + u'"');
    return citados.join(u',');
}

QString EnUnaLinea(const QJsonObject& objeto) {
    return QString::fromUtf8(QJsonDocument(objeto).toJson(QJsonDocument::Compact));
}

QJsonArray Cambios(const Asiento& asiento) {
    QJsonArray cambios;
    for (const CambioDeValor& cambio : asiento.ValoresCambiados())
        cambios.append(
            QJsonObject{{u"dato"_s, cambio.dato}, {u"antes"_s, cambio.antes}, {u"despues"_s, cambio.despues}});
    return cambios;
}

QJsonObject EnJson(const Asiento& asiento) {
    return {{u"momento"_s, asiento.momento},
            {u"usuario"_s, asiento.usuario},
            {u"equipo"_s, asiento.equipo},
            {u"suceso"_s, asiento.suceso},
            {u"texto"_s, TextoDeSuceso(asiento.suceso)},
            {u"ruc"_s, asiento.ruc},
            {u"periodo"_s, asiento.periodo},
            {u"correl"_s, asiento.correl},
            {u"cambios"_s, Cambios(asiento)}};
}

/// An entry at a time: the log only grows.
void EscribeJson(const QList<Asiento>& asientos, QTextStream& salida) {
    salida << u"{\"asientos\":["_s;
    bool primero = true;
    for (const Asiento& asiento : asientos)
        salida << (std::exchange(primero, false) ? QString() : u","_s) << EnUnaLinea(EnJson(asiento));
    salida << u"],\"codigo\":0,\"mensajes\":[]}\n"_s;
}

} // namespace

void EscribeBitacora(const QList<Asiento>& asientos, FormaDeLista forma, QTextStream& salida) {
    if (forma == FormaDeLista::Json)
        return EscribeJson(asientos, salida);
    const bool csv = forma == FormaDeLista::Csv;
    const QStringList titulos{u"Momento"_s, u"Usuario"_s, u"Equipo"_s, u"Suceso"_s,
                              u"RUC"_s,     u"Período"_s, u"Copia"_s,  u"Qué cambió"_s};
    if (csv)
        salida << EnCsv(titulos) << '\n';
    for (const Asiento& asiento : asientos) {
        const QStringList campos{asiento.momento, asiento.usuario, asiento.equipo, TextoDeSuceso(asiento.suceso),
                                 asiento.ruc,     asiento.periodo, asiento.correl, asiento.Diferencias()};
        salida << (csv ? EnCsv(campos) : campos.join(u"  "_s).trimmed()) << '\n';
    }
}

void EscribeDefecto(int codigo, const QStringList& mensajes, QTextStream& salida) {
    salida << EnUnaLinea({{u"codigo"_s, codigo}, {u"mensajes"_s, QJsonArray::fromStringList(mensajes)}}) << '\n';
}

} // namespace xa518
