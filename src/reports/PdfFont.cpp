#include "reports/PdfFont.h"

#include "reports/PagePainter.h"
#include "reports/PdfDocument.h"
#include "reports/TrueTypeSubset.h"
#include "values/Error.h"

#include <QtEndian>

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kAltoDeMedir = 1000; ///< measures at this height are the thousandths that PDF counts in

/// In a string these would end it, or be taken for something else.
constexpr bool PideBarra(char c) {
    return c == '(' || c == ')' || c == '\\' || c == '\r';
}

void AgregaByte(char*& lugar, quint16 byte) {
    const char c = static_cast<char>(byte);
    if (PideBarra(c))
        *lugar++ = '\\';
    *lugar++ = c == '\r' ? 'r' : c;
}

QByteArray Hexadecimal(quint16 numero) {
    return '<' + QByteArray::number(numero, 16).rightJustified(4, '0') + '>';
}

} // namespace

LetraPdf::LetraPdf(bool negrita)
    : m_letra(QRawFont::fromFont(FuenteInforme(kAltoDeMedir, negrita)))
    , m_negrita(negrita)
    , m_codigos(1 << 16)
    , m_glifos{0} {
    if (m_letra.fontTable("glyf").isEmpty()) // outlines of another form than TrueType's
        throw Error(NumeroError::ArgumentoInvalido,
                    u"La letra instalada no sirve para un PDF: %1."_s.arg(kComoTenerLetra));
}

quint16 LetraPdf::Numera(QChar c) {
    const QList<quint32> glifos = m_letra.glyphIndexesForString(QString(c));
    m_caracteres.push_back(c);
    m_glifos.push_back(glifos.isEmpty() ? 0 : glifos.first());
    return static_cast<quint16>(m_caracteres.size());
}

/// Beyond the first plane no fixed-width letter reaches: one sign tells that something stood there.
quint16 LetraPdf::Codigo(QChar c) {
    quint16& codigo = m_codigos[c.unicode()];
    if (codigo == 0)
        codigo = Numera(c);
    return codigo;
}

void LetraPdf::AgregaCadena(QByteArray& contenido, QStringView texto) {
    constexpr qsizetype kBytesPorCaracter = 4; // at most, with its bars
    const qsizetype inicio = contenido.size();
    contenido.resize(inicio + kBytesPorCaracter * texto.size() + 2);
    char* lugar = contenido.data() + inicio;
    *lugar++ = '(';
    for (const QChar c : texto) {
        if (c.isLowSurrogate())
            continue;
        const quint16 codigo = Codigo(c.isHighSurrogate() ? QChar(QChar::ReplacementCharacter) : c);
        AgregaByte(lugar, codigo >> 8);
        AgregaByte(lugar, codigo & 0xff);
    }
    *lugar++ = ')';
    contenido.truncate(lugar - contenido.constData());
}

/// Six letters in front tell that it is a part.
QByteArray LetraPdf::Nombre() const {
    QString nombre = m_letra.familyName();
    nombre.remove(u' ');
    return "/XAREPO+" + nombre.toLatin1() + (m_negrita ? "-Bold" : "");
}

QByteArray LetraPdf::Descriptor(int archivo) const {
    const QByteArray head = m_letra.fontTable("head");
    const auto medida = [&](qsizetype lugar) {
        return lugar + 2 <= head.size() ? qFromBigEndian<qint16>(head.constData() + lugar) : 0;
    };
    QByteArray caja;
    for (const qsizetype lado : {36, 38, 40, 42})
        caja += ' ' + QByteArray::number(qRound(medida(lado) * 1000.0 / m_letra.unitsPerEm()));
    constexpr int kFijaYSimbolica = 1 + 4;
    return "<</Type/FontDescriptor/FontName" + Nombre() + "/Flags " + QByteArray::number(kFijaYSimbolica) +
           "/FontBBox[" + caja.trimmed() + "]/ItalicAngle 0/Ascent " + QByteArray::number(qRound(m_letra.ascent())) +
           "/Descent " + QByteArray::number(-qRound(m_letra.descent())) + "/CapHeight " +
           QByteArray::number(qRound(m_letra.capHeight())) + "/StemV " + (m_negrita ? "120" : "80") + "/FontFile2 " +
           ReferenciaPdf(archivo) + ">>";
}

/// Which character each code stands for, so that texts can be searched and copied.
QByteArray LetraPdf::MapaUnicode() const {
    constexpr size_t kPorBloque = 100;
    QByteArray mapa = "/CIDInit/ProcSet findresource begin 12 dict begin begincmap\n"
                      "/CIDSystemInfo<</Registry(Adobe)/Ordering(UCS)/Supplement 0>>def\n"
                      "/CMapName/Adobe-Identity-UCS def/CMapType 2 def\n"
                      "1 begincodespacerange<0000><ffff>endcodespacerange\n";
    for (size_t i = 0; i < m_caracteres.size(); i += kPorBloque) {
        const size_t fin = std::min(i + kPorBloque, m_caracteres.size());
        mapa += QByteArray::number(fin - i) + " beginbfchar\n";
        for (size_t j = i; j < fin; ++j)
            mapa += Hexadecimal(static_cast<quint16>(j + 1)) + Hexadecimal(m_caracteres[j].unicode()) + '\n';
        mapa += "endbfchar\n";
    }
    return mapa + "endcmap CMapName currentdict/CMap defineresource pop end end";
}

QByteArray LetraPdf::Anchos() const {
    const qreal ancho = MedidasDe(FuenteInforme(kAltoDeMedir, m_negrita)).paso;
    return "/DW " + QByteArray::number(qRound(ancho)) + "/W[0 65535 " + QByteArray::number(ancho, 'g', 6) + ']';
}

void LetraPdf::Escribe(DocumentoPdf& documento, int objeto) const {
    const int descendiente = documento.Reserva();
    const int descriptor = documento.Reserva();
    const int archivo = documento.Reserva();
    const int mapa = documento.Reserva();
    documento.Pon(objeto, "<</Type/Font/Subtype/Type0/BaseFont" + Nombre() + "/Encoding/Identity-H/DescendantFonts[" +
                              ReferenciaPdf(descendiente) + "]/ToUnicode " + ReferenciaPdf(mapa) + ">>");
    documento.Pon(descendiente, "<</Type/Font/Subtype/CIDFontType2/CIDToGIDMap/Identity/BaseFont" + Nombre() +
                                    "/CIDSystemInfo<</Registry(Adobe)/Ordering(Identity)/Supplement 0>>" + Anchos() +
                                    "/FontDescriptor " + ReferenciaPdf(descriptor) + ">>");
    documento.Pon(descriptor, Descriptor(archivo));
    const QByteArray letra = SubconjuntoTrueType(m_letra, m_glifos);
    documento.PonFlujo(archivo, {.entradas = "/Length1 " + QByteArray::number(letra.size()), .bytes = letra});
    documento.PonFlujo(mapa, {.bytes = MapaUnicode()});
}

} // namespace xa518
