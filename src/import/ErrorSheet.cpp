#include "import/ErrorSheet.h"

#include "values/Decimal.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// The texts of an import file come from others: none of them may run in the spreadsheet of whoever looks at it.
bool PareceFormula(const QString& texto) {
    return !texto.isEmpty() && u"=+-@\t\r"_s.contains(texto.front()) && !EsNumerico(texto);
}

QString Celda(const QString& texto) {
    QString celda = PareceFormula(texto) ? u'\'' + texto : texto;
    if (!celda.contains(u'"') && !celda.contains(u',') && !celda.contains(u'\n') && !celda.contains(u'\r'))
        return celda;
    return u'"' + celda.replace(u'"', u"\"\""_s) + u'"';
}

} // namespace

PlanillaErrores::PlanillaErrores(QIODevice& destino) : m_destino(destino) {
    Escribe("\xEF\xBB\xBF" + u"Línea,Campo,Valor,Código,Motivo,Archivo\r\n"_s.toUtf8());
}

void PlanillaErrores::Anota(const FilaPlanilla& fila) {
    const QStringList celdas{QString::number(fila.linea), Celda(fila.campo),  Celda(fila.valor),
                             QString(fila.codigo),        Celda(fila.motivo), Celda(fila.archivo)};
    Escribe((celdas.join(u',') + u"\r\n"_s).toUtf8());
}

void PlanillaErrores::Escribe(const QByteArray& bytes) {
    if (m_falla.isEmpty() && m_destino.write(bytes) != bytes.size())
        m_falla = m_destino.errorString();
}

} // namespace xa518
