#include "reports/PdfDocument.h"

#include "reports/PartialFile.h"

namespace xa518 {

namespace {

/// The packed form begins with a length of four bytes that PDF doesn't know.
QByteArray Comprimido(const QByteArray& bytes) {
    return qCompress(bytes).sliced(4);
}

} // namespace

QByteArray ReferenciaPdf(int objeto) {
    return QByteArray::number(objeto) + " 0 R";
}

/// The bytes beyond ASCII tell whoever carries the file that it isn't text.
DocumentoPdf::DocumentoPdf(ArchivoParcial& archivo) : m_archivo(&archivo) {
    m_archivo->Escribe("%PDF-1.4\n%\xe2\xe3\xcf\xd3\n");
}

int DocumentoPdf::Reserva() {
    m_lugares.push_back(0);
    return static_cast<int>(m_lugares.size());
}

void DocumentoPdf::Empieza(int objeto) {
    m_lugares[static_cast<size_t>(objeto - 1)] = m_archivo->Largo();
    m_archivo->Escribe(QByteArray::number(objeto) + " 0 obj\n");
}

void DocumentoPdf::Pon(int objeto, const QByteArray& contenido) {
    Empieza(objeto);
    m_archivo->Escribe(contenido + "\nendobj\n");
}

void DocumentoPdf::PonFlujo(int objeto, const FlujoPdf& flujo) {
    const QByteArray comprimido = Comprimido(flujo.bytes);
    Empieza(objeto);
    m_archivo->Escribe("<<" + flujo.entradas + "/Filter/FlateDecode/Length " + QByteArray::number(comprimido.size()) +
                       ">>\nstream\n");
    m_archivo->Escribe(comprimido);
    m_archivo->Escribe("\nendstream\nendobj\n");
}

/// A line of the table takes twenty bytes, whatever it says.
void DocumentoPdf::Termina(int raiz, int informacion) {
    const qint64 tabla = m_archivo->Largo();
    const QByteArray cuantos = QByteArray::number(m_lugares.size() + 1);
    m_archivo->Escribe("xref\n0 " + cuantos + "\n0000000000 65535 f \n");
    for (const qint64 lugar : m_lugares)
        m_archivo->Escribe(QByteArray::number(lugar).rightJustified(10, '0') + " 00000 n \n");
    m_archivo->Escribe("trailer\n<</Size " + cuantos + "/Root " + ReferenciaPdf(raiz) + "/Info " +
                       ReferenciaPdf(informacion) + ">>\nstartxref\n" + QByteArray::number(tabla) + "\n%%EOF\n");
}

} // namespace xa518
