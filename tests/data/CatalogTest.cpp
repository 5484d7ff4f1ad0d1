#include "data/Catalog.h"
#include "data/CatalogLayout.h"
#include "data/DocumentTypes.h"
#include "data/RecordChecksum.h"
#include "data/Transaction.h"
#include "support/BaseFixture.h"

namespace {

class CatalogTest : public BaseDePrueba {
  protected:
    void Documento(const QString& tipo, const QString& corto, const QString& largo, const QString& orden,
                   const QString& datoYLongitud, const QString& ofrecidoEn = u"1"_s) const {
        const QString fila = Funcion(
            {{1, u"DOCUMENTO"_s}, {32, corto}, {46, largo}, {49, ofrecidoEn}, {56, orden}, {128, datoYLongitud}});
        m_base->Ejecuta(u"DELETE * FROM PARAM WHERE Numero='044' AND Argumento=?"_s, {tipo});
        m_base->Ejecuta(u"INSERT INTO PARAM VALUES ('044',?,?,0)"_s, {tipo, fila});
    }
    void Documentos() const {
        Documento(u"1"_s, u"DNI"_s, u"08"_s, u"02"_s, u"0 1"_s, u"11"_s);
        Documento(u"4"_s, u"CARNE EXT. LARGO"_s, u"12"_s, u"03"_s, u"5 0"_s);
        Documento(u"7"_s, u"PASAPORTE"_s, u"12"_s, u"01"_s, u"5 0"_s);
    }
};

TEST_F(CatalogTest, ReadsAPieceWithItsLengthBeforeItsPosition) {
    m_base.Param(u"830"_s, u"01"_s, u"209912 resto"_s);
    m_base.Param(u"856"_s, u"O'x"_s, u"dato"_s);
    m_base->Ejecuta(u"INSERT INTO ERROR VALUES ('0151','Ciento cincuenta y uno')"_s);
    const Catalogo catalogo(*m_base);
    EXPECT_EQ(catalogo.FuncionParam(u"830"_s, u"01"_s, 2, 5), u"12"_s);
    EXPECT_EQ(catalogo.FuncionParam(u"830"_s, u"01"_s, 30, 8), u"resto"_s);
    EXPECT_EQ(catalogo.FuncionParam(u"830"_s, u"01"_s, 3, 90) + catalogo.FuncionParam(u"830"_s, u"02"_s, 6, 1), u""_s);
    EXPECT_EQ(catalogo.Funcion(u"856"_s, u"O'x"_s), u"dato"_s);
    EXPECT_EQ(catalogo.Funcion(u"856"_s, u"' or '1'='1"_s), u""_s);
    EXPECT_EQ(catalogo.DescError(u"151"_s), u"Ciento cincuenta y uno"_s);
}

TEST_F(CatalogTest, DocumentsAreOfferedByFlagInTheOrderOfTheirKey) {
    Documentos();
    const auto ofrecidos = [this](int bandera) {
        QStringList lista;
        for (const TipoDocumento& tipo : DocumentosOfrecidos(*m_base, {u"uso", bandera, 1}))
            lista.append(
                QStringList{tipo.codigo.Texto(), tipo.corto, tipo.lenDoc, tipo.tipoDato, tipo.tipoLongitud}.join(u'|'));
        return lista;
    };
    EXPECT_EQ(ofrecidos(49),
              (QStringList{u"07|PASAPORTE  |12|5|0"_s, u"01|DNI        |08|0|1"_s, u"04|CARNE EXT. |12|5|0"_s}));
    EXPECT_EQ(ofrecidos(50), QStringList{u"01|DNI        |08|0|1"_s});
}

TEST_F(CatalogTest, DocumentTypesDecideWhichNumbersFit) {
    Documentos();
    for (const QString& buena : u" 01 =12345678|4=AB12"_s.split(u'|'))
        EXPECT_TRUE(ValidaDocumento(*m_base, {CodigoDocumento::De(buena.section(u'=', 0, 0)), buena.section(u'=', 1)}))
            << qPrintable(buena);
    // The last one's type has no row.
    for (const QString& mala : u"1=1234567|1=1234567A|1=  |4=AB12-3|4=1234567890123|4=ñ1|9=123|=12345678|"
                               "6=20555123451"_s.split(u'|'))
        EXPECT_FALSE(ValidaDocumento(*m_base, {CodigoDocumento::De(mala.section(u'=', 0, 0)), mala.section(u'=', 1)}))
            << qPrintable(mala);
    Documento(u"6"_s, u"RUC"_s, u"11"_s, u"01"_s, u"0 0"_s);
    EXPECT_TRUE(ValidaDocumento(*m_base, {CodigoDocumento(6), u"2055512345"_s}));
    Documento(u"6"_s, u"RUC"_s, u"11"_s, u"01"_s, u"0 1"_s);
    EXPECT_FALSE(ValidaDocumento(*m_base, {CodigoDocumento(6), u"2055512345"_s}));
}

class RecordChecksumTest : public BaseDePrueba {
  protected:
    RecordChecksumTest() {
        m_base->Ejecuta(u"INSERT INTO CLAVES VALUES ('JEFA', '0')"_s); // the one row to copy from
        m_base->Ejecuta(u"CREATE TABLE LIBRE (a TEXT, b TEXT, c TEXT, d TEXT, e TEXT, f TEXT, g TEXT, cNumero TEXT)"_s);
    }
    /// As the program sums the row, with which a row that is copied as a set agrees.
    [[nodiscard]] QString De(const QString& tabla, int primeros, const QVariantList& valores) {
        Registro registro(m_base->Describe(tabla));
        for (int i = 0; i < valores.size(); ++i)
            registro.Pon(i, valores[i]);
        const QString checksum = ChecksumRegistro(registro, primeros);
        const QVariantList campos = registro.Valores().first(registro.Valores().size() - 1);
        CopiaDeFilas copia{.tabla = tabla, .datos = {}, .desde = u"FROM CLAVES"_s};
        for (int i = 0; i < campos.size(); ++i)
            copia.datos.append({registro.DeTabla().columnas[i].nombre, u"?"_s, {campos[i]}});
        Transaccion transaccion = m_base->Comienza();
        CopiaConChecksum(*m_base, copia, primeros);
        EXPECT_EQ(Lista(u"SELECT cNumero FROM "_s + tabla), checksum);
        return checksum;
    }
};

TEST_F(RecordChecksumTest, SumsNumbersAndThenCodesByPosition) {
    // 20555123451 + 6 + 202405 + 518 = ...380; "1500" 491, "0" 48, "0" 48 = 587. The date is no number, blanks are cut.
    const QVariantList cab = {u"20555123451"_s, 6,     u"202405"_s, u"0518"_s, u"03/06/2024"_s, u" "_s,
                              u" "_s,           u""_s, u"1500"_s,   0,         u"0"_s};
    EXPECT_EQ(De(u"CAB"_s, 5, cab), u"380587"_s);
    // Accents, Ñ and € by their code in Windows-1252; a null field counts nothing; the whole sums pass three digits.
    const QVariantList cliente = {6,           u"20555123451"_s,
                                  u"202405"_s, u"0518"_s,
                                  6,           u"10456789012"_s,
                                  QVariant(),  u"NÚÑEZ"_s,
                                  u"PEÑA"_s,   u"JOSÉ €"_s,
                                  3,           u"1000.50"_s,
                                  u"20.01"_s,  1};
    EXPECT_EQ(De(u"F518PCAB"_s, 6, cliente), u"398371"_s);
}

TEST_F(RecordChecksumTest, GivesSixDigitsForAnyRow) {
    EXPECT_EQ(De(u"LIBRE"_s, 6, {}), u"000000"_s);
    EXPECT_EQ(De(u"LIBRE"_s, 5, {u"1.25"_s, u"1.25"_s, u"A"_s, u""_s, u""_s, u""_s, u"x"_s}), u"003120"_s); // 2.5 is 3
    EXPECT_EQ(De(u"LIBRE"_s, 5, {u" 7 "_s, u"-9.5"_s, u""_s, u""_s, u""_s, u"a b "_s}), u"003455"_s);
    EXPECT_EQ(De(u"LIBRE"_s, 5, {1, 2, 3, 4, 5, u"日本"_s}), u"015189"_s); // two "?": 63 + 126
    // The position starts again in each field, and what lies in the last field doesn't count.
    EXPECT_EQ(De(u"LIBRE"_s, 5, {0, 0, 0, 0, 0, u"A"_s, u"A"_s, u"999"_s}), u"000130"_s);
}

TEST_F(RecordChecksumTest, RaisesWhereSixteenBitsEnd) {
    const auto largo = [this](const QString& texto) { return De(u"LIBRE"_s, 5, {0, 0, 0, 0, 0, texto}); };
    EXPECT_NO_THROW((void)largo(QString(128, u'ÿ'))); // 255 x 128 = 32640
    EXPECT_THROW((void)largo(QString(129, u'ÿ')), Desbordamiento);
    EXPECT_NO_THROW((void)largo(QString(504, u'A'))); // 65 x 504 = 32760
    EXPECT_THROW((void)largo(QString(505, u'A')), Desbordamiento);
}

} // namespace
