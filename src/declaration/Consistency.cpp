#include "declaration/Consistency.h"

#include "values/FileFailure.h"
#include "values/Format.h"
#include "values/Text.h"

#include <QDir>
#include <QSaveFile>

#include <array>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

bool Vacia(const Declaracion& declaracion, int casilla) {
    return Recorta(declaracion.montos.Texto(casilla)).isEmpty();
}

Decimal Valor(const Declaracion& declaracion, int casilla, QStringView mascara) {
    return Decimal::Valor(Format(declaracion.montos.Texto(casilla), mascara));
}

bool PagaDeMas(const Declaracion& declaracion) {
    const Decimal pagado = Valor(declaracion, 410, u"############");
    const Decimal debido = Valor(declaracion, 405, u"###########0");
    // Box 405 is never below 0, so the exemption never applies. It belongs to the rule all the same.
    const bool exento = debido.Signo() < 0 && pagado.Signo() == 0;
    return pagado > debido && !Vacia(declaracion, 405) && !exento;
}

bool PagaDeMenos(const Declaracion& declaracion) {
    return Valor(declaracion, 410, u"###########0") < Valor(declaracion, 405, u"###########0") &&
           !Vacia(declaracion, 405) && !Vacia(declaracion, 410);
}

struct Regla {
    bool (*falla)(const Declaracion&);
    QString linea;
};

/// The first two differ by a word and by the emptiness of box 405: both texts are wanted as
/// they are, since help desks tell the two cases by them.
const std::array<Regla, 6>& Reglas() {
    static const std::array<Regla, 6> reglas = {{
        {[](const Declaracion& d) { return !Vacia(d, 405) && Vacia(d, 410) && !Vacia(d, 401); },
         u"Debe consignar el importe a pagar en Percepciones."_s},
        {[](const Declaracion& d) { return Vacia(d, 405) && Vacia(d, 410); },
         u"Debe consignar importe a pagar en Percepciones."_s},
        {[](const Declaracion& d) { return !d.pago.EsEfectivo() && !d.pago.EsCheque(); },
         u"Indique la forma de pago."_s},
        {[](const Declaracion& d) { return d.pago.EsCheque() && !d.pago.ConBanco(); }, u"Seleccione el banco."_s},
        {[](const Declaracion& d) { return d.pago.EsCheque() && d.pago.ConBanco() && d.pago.numeroCheque.isEmpty(); },
         u"Ingrese el número de cheque."_s},
        {[](const Declaracion& d) { return d.pago.EsCheque() && EsNumericoCero(d.pago.numeroCheque); },
         u"Ingrese un número de cheque diferente de '0'."_s},
    }};
    return reglas;
}

} // namespace

std::optional<Mensaje> AvisoDeImporte(const Declaracion& declaracion) {
    if (PagaDeMas(declaracion))
        return Mensaje{Icono::Informacion,
                       u"El importe a pagar es mayor que el saldo definitivo a pagar."
                       " Se le generará un pago en exceso de Percepciones"_s,
                       {}};
    if (PagaDeMenos(declaracion))
        return Mensaje{Icono::Informacion,
                       u"El importe a pagar es menor que el saldo definitivo a pagar en Percepciones"
                       ". La ZOLMA emitirá una Orden de Pago"_s,
                       {}};
    return std::nullopt;
}

QStringList Inconsistencias(const Declaracion& declaracion) {
    QStringList lineas;
    for (const Regla& regla : Reglas()) {
        if (regla.falla(declaracion))
            lineas.append(regla.linea);
    }
    return lineas;
}

Mensaje SinInconsistencias() {
    return {Icono::Exclamacion, u"La declaración no presenta inconsistencias."_s, {}};
}

QString RutaMens(const QString& sysPath, const QString& formulario) {
    return sysPath + formulario + QDir::separator() + u"Mens.txt"_s;
}

void EscribeMens(const QString& ruta, const QStringList& lineas) {
    QByteArray bytes;
    for (const QString& linea : lineas)
        bytes += linea.toUtf8() + '\n';
    QSaveFile archivo(ruta);
    if (!archivo.open(QIODevice::WriteOnly) || archivo.write(bytes) != bytes.size() || !archivo.commit())
        throw FallaDeArchivo(Intento::Escribir, archivo);
}

QString LeeMens(const QString& ruta) {
    QFile archivo(ruta);
    if (!archivo.open(QIODevice::ReadOnly))
        throw FallaDeArchivo(Intento::Leer, archivo);
    return QString::fromUtf8(archivo.readAll());
}

} // namespace xa518
