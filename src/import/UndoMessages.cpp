#include "import/UndoMessages.h"

#include "values/Format.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

const QString kTitulo = u"Confirmar"_s;

QString Cuantos(qint64 cuantos, const QString& uno, const QString& varios) {
    return cuantos == 1 ? u"1 "_s + uno : QString::number(cuantos) + u' ' + varios;
}

QString Monto(Importe monto) {
    return Format(monto, u"###,###,###,##0.#0");
}

QString Filas(const LoQueSeIria& seIria) {
    return u"%1, %2 y %3"_s.arg(Cuantos(seIria.clientes, u"cliente"_s, u"clientes"_s),
                                Cuantos(seIria.comprobantes, u"comprobante"_s, u"comprobantes"_s),
                                Cuantos(seIria.pagos, u"comprobante de pago"_s, u"comprobantes de pago"_s));
}

/// What a run could not tell at its end isn't made up.
QString FinDe(const CorridaTrabajo& corrida) {
    if (!corrida.fin || !corrida.transferidos || !corrida.rechazados)
        return u"no llegó a su fin"_s;
    const QString lineas = u"%1 y %2"_s.arg(Cuantos(*corrida.transferidos, u"transferida"_s, u"transferidas"_s),
                                            Cuantos(*corrida.rechazados, u"rechazada"_s, u"rechazadas"_s));
    switch (*corrida.fin) {
    case FinDeCorrida::Cancelada: return u"detenida, con "_s + lineas;
    case FinDeCorrida::Fallida: return u"falló, con "_s + lineas;
    case FinDeCorrida::Completa: break;
    }
    return u"líneas: "_s + lineas;
}

QString Manos(const LoQueSeIria& seIria) {
    QStringList lineas;
    if (seIria.modificadas > 0)
        lineas.append(u"• modificadas: %1; se irán también"_s.arg(seIria.modificadas));
    if (seIria.colgadas > 0)
        lineas.append(
            u"• registradas bajo un cliente o comprobante importado: %1; se irán con él"_s.arg(seIria.colgadas));
    if (seIria.eliminadas > 0)
        lineas.append(u"• eliminadas: %1; no volverán"_s.arg(seIria.eliminadas));
    QString texto = u"Filas cambiadas a mano desde entonces:\n"_s + lineas.join(u'\n');
    if (!seIria.cuales.isEmpty())
        texto += u"\nPor ejemplo: "_s + seIria.cuales.join(u"; "_s) + u'.';
    return texto + u"\n\n"_s;
}

} // namespace

QString ComoFue(const CorridaTrabajo& corrida) {
    return u"%1, %2, usuario %3 (%4)"_s.arg(corrida.archivo.nombre, corrida.hora.toString(u"dd/MM/yyyy HH:mm"_s),
                                            corrida.usuario, FinDe(corrida));
}

Mensaje PreguntaPorDeshacer(const LoQueSeIria& seIria) {
    return {seIria.HuboManos() ? Icono::Exclamacion : Icono::Pregunta,
            u"Última importación: %1.\n\nAl deshacerla se van %2, con %3 de monto cobrado y %4 de percepción. Los demás"
            " clientes vuelven a los totales que tenían.\n\n%5¿Desea deshacerla?"_s.arg(
                ComoFue(seIria.corrida), Filas(seIria), Monto(seIria.base), Monto(seIria.percepcion),
                seIria.HuboManos() ? Manos(seIria) : QString()),
            kTitulo};
}

Mensaje MensajeDeshecha(const LoQueSeIria& seFue) {
    return {
        Icono::Informacion,
        u"Se deshizo la importación de %1: se fueron %2.\nPara que cambie también la declaración grabada, grábela."_s
            .arg(seFue.corrida.archivo.nombre, Filas(seFue)),
        u"Mensaje"_s};
}

Mensaje PreguntaPorRepetida(const CorridaTrabajo& anterior) {
    return {Icono::Pregunta,
            u"Este mismo archivo ya se importó en esta declaración: %1.\n¿Desea importarlo otra vez?"_s.arg(
                ComoFue(anterior)),
            kTitulo};
}

} // namespace xa518
