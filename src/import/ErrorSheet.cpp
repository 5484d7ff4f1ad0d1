#include "import/ErrorSheet.h"

#include "values/Decimal.h"

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// The texts of an import file come from others: none of them may run in the spreadsheet of whoever looks at it.
bool PareceFormula(const QString& texto) {
    return !texto.isEmpty() && u"=+-@\t\r"_s.contains(texto.front()) && !EsNumerico(texto);
}

void AgregaCelda(QByteArray& fila, const QString& texto) {
    QByteArray celda = (PareceFormula(texto) ? u'\'' + texto : texto).toUtf8();
    fila += ',';
    if (std::none_of(celda.cbegin(), celda.cend(),
                     [](char c) { return c == '"' || c == ',' || c == '\n' || c == '\r'; }))
        fila += celda;
    else
        fila += '"' + celda.replace("\"", "\"\"") + '"';
}

} // namespace

PlanillaErrores::PlanillaErrores(QIODevice& destino) : m_destino(destino) {
    Escribe("\xEF\xBB\xBF" + u"Línea,Campo,Valor,Código,Motivo,Archivo\r\n"_s.toUtf8());
}

void PlanillaErrores::Anota(const FilaPlanilla& fila) {
    QByteArray bytes = fila.linea > 0 ? QByteArray::number(fila.linea) : QByteArray();
    AgregaCelda(bytes, fila.campo);
    AgregaCelda(bytes, fila.valor);
    AgregaCelda(bytes, QString(fila.codigo));
    AgregaCelda(bytes, fila.motivo);
    AgregaCelda(bytes, fila.archivo);
    Escribe(bytes += "\r\n");
}

void PlanillaErrores::Escribe(const QByteArray& bytes) {
    m_completa = m_completa && m_destino.write(bytes) == bytes.size();
}

} // namespace xa518
