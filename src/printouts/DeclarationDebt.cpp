#include "printouts/DeclarationReport.h"
#include "values/Format.h"
#include "values/ObjetoUtil.h"
#include "values/Text.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kFilas = 11;
constexpr int kFilaTitulo = 490; ///< from where the determination begins down to its title row
constexpr int kAnchoValor = 16;

constexpr int kXRotulo = 270;
constexpr int kXNumero = 8825;
constexpr int kXValor = 9220;
constexpr int kXMarcaIzquierda = 6600;

struct FilaCasilla {
    QStringView rotulo;
    int casilla = 0;
    bool negrita = false;
};

constexpr FilaCasilla kCasillas[] = {
    {u"PERCEPCIONES EFECTUADAS", 401}, {u"Pagos previos(Efectivo,cheque. o doc.val)", 402},
    {u"PERCEPCION A PAGAR", 403},      {u"Interés moratorio", 404},
    {u"TOTAL DEUDA TRIBUTARIA", 405},  {u"IMPORTE A PAGAR", 410, true},
};

/// Rows with a pair of answers, and so with a second square to mark.
bool TieneMarca(int fila) {
    return fila == 8 || fila == 9;
}

} // namespace

void InformeDeclaracion::Determinacion() {
    m_posY += kFilaTitulo;
    Rejilla();
    m_escritor->ImprimePos(300, m_posY + kAltoTexto, u"DETERMINACION DE LA DEUDA TRIBUTARIA"_s, 9, true);
    m_posY += kAltoFila;
    CuadroEnFila(180, 180);
    TextoEnFila(9300, u"PERCEPCIÓN"_s);
    CuadroEnFila(8780, 11000);
    FilasDeCasillas();
    FilaRectifica();
    FilasDePago();
}

/// Eleven rows under the title row, which the boxes of the first one cover as well.
void InformeDeclaracion::Rejilla() {
    for (int fila = 1; fila <= kFilas; ++fila) {
        const int arriba = m_posY + (fila == 1 ? 0 : fila * kAltoFila);
        const int abajo = m_posY + (fila + 1) * kAltoFila;
        m_escritor->ImprimeCuadro(180, arriba, 11000, abajo);
        if (TieneMarca(fila))
            m_escritor->ImprimeCuadro(6550, arriba, 6950, abajo);
        m_escritor->ImprimeCuadro(8775, arriba, 9175, abajo);
    }
}

void InformeDeclaracion::FilasDeCasillas() {
    for (const FilaCasilla& fila : kCasillas) {
        m_posY += kAltoFila;
        m_escritor->ImprimePos(kXRotulo, m_posY + kAltoTexto, fila.rotulo.toString(), 8, fila.negrita);
        TextoEnFila(kXNumero, QString::number(fila.casilla));
        const QString valor = Format(m_datos->Casilla(fila.casilla), u"###,###,###,##0;(###,###,###,##0)");
        TextoEnFila(kXValor, ObjetoUtil::AlineaDerecha(valor, kAnchoValor));
    }
}

void InformeDeclaracion::FilaRectifica() {
    m_posY += kAltoFila;
    TextoEnFila(kXRotulo, u"RECTIFICA"_s);
    TextoEnFila(7000, u"SI"_s);
    TextoEnFila(9250, u"NO"_s);
    TextoEnFila(m_datos->rectifica ? kXMarcaIzquierda : kXNumero, u" X "_s);
}

/// The cheque's number is stored as one blank for a payment in cash, so it counts trimmed; the amount in cash as it is.
/// Box 015 is printed for the bank, box 012 isn't for the cheque. Wanted: the sheet
/// stays as it is known.
void InformeDeclaracion::FilasDePago() {
    m_posY += kAltoFila;
    TextoEnFila(kXRotulo, u"FORMA DE PAGO"_s);
    TextoEnFila(7000, u"EFECTIVO"_s);
    TextoEnFila(9250, u"CHEQUE"_s);
    if (!m_datos->efectivo.isEmpty())
        TextoEnFila(kXMarcaIzquierda, u" X "_s);
    const QString cheque = Recorta(m_datos->nroCheque).toString();
    if (cheque.isEmpty())
        return;
    TextoEnFila(kXNumero, u" X "_s);
    m_posY += kAltoFila;
    TextoEnFila(kXRotulo, u"NRO. DE CHEQUE"_s);
    TextoEnFila(9380, cheque);
    m_posY += kAltoFila;
    TextoEnFila(kXRotulo, u"CODIGO DE BANCO"_s);
    TextoEnFila(kXNumero, u"015"_s);
    TextoEnFila(9200, m_datos->bcolibrad);
}

} // namespace xa518
