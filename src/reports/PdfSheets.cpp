#include "reports/PdfSheets.h"

#include "reports/PdfDocument.h"

namespace xa518 {

namespace {

constexpr size_t kHojasPorRama = 100;

QByteArray Lista(const std::vector<int>& objetos) {
    QByteArray lista;
    for (const int objeto : objetos)
        lista += ReferenciaPdf(objeto) + ' ';
    return '[' + lista.trimmed() + ']';
}

} // namespace

HojasPdf::HojasPdf(DocumentoPdf& documento)
    : m_documento(&documento), m_catalogo(documento.Reserva()), m_arbol(documento.Reserva()) {}

void HojasPdf::EmpiezaHoja(bool apaisado) {
    TerminaHoja();
    m_hoja.emplace(m_letras, apaisado);
}

void HojasPdf::TerminaHoja() {
    if (!m_hoja)
        return;
    if (m_rama == 0)
        m_rama = m_documento->Reserva();
    const int contenido = m_documento->Reserva();
    const int hoja = m_documento->Reserva();
    const QSize tamano = TamanoPdf(m_hoja->Apaisado());
    m_documento->PonFlujo(contenido, {.bytes = m_hoja->Cierra()});
    m_documento->Pon(hoja, "<</Type /Page\n/Parent " + ReferenciaPdf(m_rama) + "/MediaBox [0 0 " +
                               QByteArray::number(tamano.width()) + ' ' + QByteArray::number(tamano.height()) +
                               "]/Contents " + ReferenciaPdf(contenido) + ">>");
    m_hoja.reset();
    m_deLaRama.push_back(hoja);
    if (m_deLaRama.size() == kHojasPorRama)
        TerminaRama();
    ++m_escritas;
}

/// Readers find a page of many by way of branches sooner than in a single list.
void HojasPdf::TerminaRama() {
    if (m_rama == 0)
        return;
    m_documento->Pon(m_rama, "<</Type/Pages/Parent " + ReferenciaPdf(m_arbol) + "/Count " +
                                 QByteArray::number(m_deLaRama.size()) + "/Kids" + Lista(m_deLaRama) + ">>");
    m_ramas.push_back(m_rama);
    m_deLaRama.clear();
    m_rama = 0;
}

/// Of all pages: the letters in use, and that lines keep their thickness on the screen.
QByteArray HojasPdf::Recursos() {
    QByteArray letras;
    for (const auto& [nombre, letra] : {std::pair("/N ", &m_letras.normal), std::pair("/B ", &m_letras.negrita)}) {
        if (!letra->EnUso())
            continue;
        const int objeto = m_documento->Reserva();
        letra->Escribe(*m_documento, objeto);
        letras += nombre + ReferenciaPdf(objeto);
    }
    return "/Resources<</ExtGState<</A<</SA true>>>>/Font<<" + letras + ">>>>";
}

void HojasPdf::Cierra() {
    TerminaHoja();
    TerminaRama();
    m_documento->Pon(m_arbol, "<</Type/Pages/Count " + QByteArray::number(m_escritas) + "/Kids" + Lista(m_ramas) +
                                  Recursos() + ">>");
    m_documento->Pon(m_catalogo, "<</Type/Catalog/Pages " + ReferenciaPdf(m_arbol) + ">>");
}

} // namespace xa518
