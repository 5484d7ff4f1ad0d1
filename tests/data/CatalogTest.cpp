#include "DataFixture.h"

#include "data/Catalog.h"
#include "data/CatalogLayout.h"
#include "data/DocumentTypes.h"
#include "data/RecordChecksum.h"
#include "family/OfferedDeclarants.h"
#include "form518/RateCatalog.h"
#include "values/CheckDigits.h"
#include "values/ObjetoUtil.h"

namespace {

class CatalogTest : public BaseDePrueba {
  protected:
    void Documento(const QString& tipo, const QString& corto, const QString& largo, const QString& orden,
                   const QString& datoYLongitud, const QString& ofrecidoEn = u"1"_s) const {
        const QString fila = Funcion(
            {{1, u"DOCUMENTO"_s}, {32, corto}, {46, largo}, {49, ofrecidoEn}, {56, orden}, {128, datoYLongitud}});
        m_base->Ejecuta(u"INSERT OR REPLACE INTO PARAM VALUES ('044',?,?,0)"_s, {tipo, fila});
    }
    void Documentos() const {
        Documento(u"1"_s, u"DNI"_s, u"08"_s, u"02"_s, u"0 1"_s, u"11"_s);
        Documento(u"4"_s, u"CARNE EXT. LARGO"_s, u"12"_s, u"03"_s, u"5 0"_s);
        Documento(u"7"_s, u"PASAPORTE"_s, u"12"_s, u"01"_s, u"5 0"_s);
    }
    void Tasa(const QString& clase, const QString& desde, const QString& antes, const QString& despues,
              const QString& tasa) const {
        m_base.Param(u"953"_s, clase + u"010909"_s + desde,
                     Funcion({{2, antes}, {21, despues}, {31, tasa}, {37, u"9"_s}}));
    }
    [[nodiscard]] QString Busca(const QString& periodo, const QString& clase, const QString& mes) const {
        CatalogoTasas tasas(*m_base, Periodo::DeTabla(periodo).value_or(Periodo()));
        const FilaTasa fila = tasas.Busca(clase, Periodo::DeTabla(mes).value_or(Periodo()));
        return fila.factor + u'/' + fila.tasa;
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
                QStringList{tipo.codigo, tipo.corto, tipo.lenDoc, tipo.tipoDato, tipo.tipoLongitud}.join(u'|'));
        return lista;
    };
    EXPECT_EQ(ofrecidos(49),
              (QStringList{u"07|PASAPORTE  |12|5|0"_s, u"01|DNI        |08|0|1"_s, u"04|CARNE EXT. |12|5|0"_s}));
    EXPECT_EQ(ofrecidos(50), QStringList{u"01|DNI        |08|0|1"_s});
}

TEST_F(CatalogTest, DocumentTypesDecideWhichNumbersFit) {
    Documentos();
    for (const QString& buena : u" 01 =12345678|4=AB12"_s.split(u'|'))
        EXPECT_TRUE(ValidaDocumento(*m_base, buena.section(u'=', 0, 0), buena.section(u'=', 1))) << qPrintable(buena);
    // The last one's type has no row.
    for (const QString& mala : u"1=1234567|1=1234567A|1=  |4=AB12-3|4=1234567890123|4=ñ1|9=123|=12345678|"
                               "6=20555123451"_s.split(u'|'))
        EXPECT_FALSE(ValidaDocumento(*m_base, mala.section(u'=', 0, 0), mala.section(u'=', 1))) << qPrintable(mala);
    Documento(u"6"_s, u"RUC"_s, u"11"_s, u"01"_s, u"0 0"_s);
    EXPECT_TRUE(ValidaDocumento(*m_base, u"6"_s, u"2055512345"_s));
    Documento(u"6"_s, u"RUC"_s, u"11"_s, u"01"_s, u"0 1"_s);
    EXPECT_FALSE(ValidaDocumento(*m_base, u"6"_s, u"2055512345"_s));
}

TEST_F(CatalogTest, DeclarantsAreAllOrOnesOwnAndOfAnyLengthByDefault) {
    m_base->Ejecuta(u"INSERT INTO CLAVES VALUES ('JEFA','0')"_s);
    m_base->Ejecuta(u"INSERT INTO CONT VALUES (6,'20555123451','B','AUX',1), (6,'20123456','A','AUX',2), "
                    "(6,'20444123450','C','O''X',2), (1,'10101010','D','AUX',2)"_s);
    const auto elegibles = [this](const QString& formulario, const QString& usuario) {
        const ConsultaSql consulta = SqlDeclarantes(*m_base, formulario, usuario);
        return Lista(u"SELECT Doc_id_d FROM ("_s + consulta.texto + u")"_s,
                     {consulta.valores.begin(), consulta.valores.end()});
    };
    // With no row of the RUC the default row sets no length.
    EXPECT_EQ(elegibles(u"0518"_s, u"JEFA"_s), u"20123456|20444123450|20555123451"_s);
    EXPECT_EQ(elegibles(u"0518"_s, u"AUX"_s), u"20123456|20555123451"_s);
    EXPECT_EQ(elegibles(u"0518"_s, u"O'X"_s), u"20444123450"_s);
    EXPECT_EQ(elegibles(u"0275"_s, u"JEFA"_s), u"20123456|20444123450"_s);
    Documento(u"6"_s, u"RUC"_s, u"11"_s, u"01"_s, u"5 1"_s);
    EXPECT_EQ(elegibles(u"0518"_s, u"AUX"_s), u"20555123451"_s);
    EXPECT_EQ(elegibles(u"0275"_s, u"JEFA"_s), u"20444123450"_s);
}

TEST_F(CatalogTest, RatesAreThoseOfTheRowInForceInTheMonth) {
    Tasa(u"1"_s, u"200501"_s, u" 0.03"_s, u"0.0050"_s, u"0.50"_s);
    Tasa(u"1"_s, u"201103"_s, u"0.04"_s, u"0.00505"_s, u"0.51"_s);
    Tasa(u"2"_s, u"200501"_s, u"0.05"_s, u"0.02"_s, u"2.00"_s);
    // The declared period, not the voucher's month, decides between the two factors.
    for (const QString& caso : u"202405|1|200412|0/0 202405|1|201102|0.0050/0.50 202405|1|201103|0.00505/0.51 "
                               "202405|2|202401|0.02/2.00 202405||202401|0/0 202405|1|____0_|0/0 "
                               "200503|1|200501|0.03/0.50 200504|1|200501|0.0050/0.50"_s.split(u' ')) {
        const QStringList campos = caso.split(u'|');
        EXPECT_EQ(Busca(campos[0], campos[1], campos[2]), campos[3]) << qPrintable(caso);
    }
    CatalogoTasas tasas(*m_base, Periodo(2024, 5));
    (void)tasas.Busca(u"2"_s, Periodo(2024, 5));
    m_base->Ejecuta(u"DELETE * FROM PARAM"_s);
    EXPECT_EQ(tasas.Busca(u"2"_s, Periodo(2024, 5)).factor, u"0.02"_s) << "kept for the run";
}

TEST_F(CatalogTest, AClassHoldsNineteenRates) {
    for (int mes = 1; mes <= 19; ++mes)
        Tasa(u"6"_s, QString::number(201000 + mes), u""_s, u"0.01"_s, QString::number(mes));
    EXPECT_EQ(Busca(u"202405"_s, u"6"_s, u"202405"_s), u"0.01/19"_s);
    Tasa(u"6"_s, u"201020"_s, u""_s, u"0.01"_s, u"20"_s);
    EXPECT_THROW((void)Busca(u"202405"_s, u"6"_s, u"202405"_s), Desbordamiento);
}

/// Expected digits are worked out by hand: 11 - (sum of digit x weight) mod 11, weights 2..7 from the right.
TEST(CheckDigit, StandsBehindTheTrimmedAndCutNumber) {
    // 6: rest 1 would be 10. 14: 8 + 3 = 11, rest 0 would be 11. The eighteenth digit doesn't count. A number is cut
    // before it is trimmed, and a letter counts 0.
    for (const QString& caso : u"6=60=6|14=141=14|2055512345=20555123451=2055512345|"
                               "123456789012345678=123456789012345673=12345678901234567|  77  =779=77|"
                               "                 7==|12A4=12A41=12A4"_s.split(u'|')) {
        QString numero = caso.section(u'=', 0, 0);
        const QString conDigito = DigitoVerificador(numero);
        EXPECT_EQ(conDigito + u'=' + numero, caso.section(u'=', 1));
    }
}

TEST(CheckDigit, OfAnOrderNumberComesInPairs) {
    // Ten digits make nineteen characters with the eight before and the digit behind: the tenth doesn't count. Another
    // length than eight is no error: the ninth character is another one, or none.
    for (const QString& caso : u"12345678/12345678/51|12345678/1234567890/54|12345678/1234567891/54|1234567/12345678/5|"
                               "123456789/12345678/94| 1234567/123/2"_s.split(u'|'))
        EXPECT_EQ(DigitosOrden(caso.section(u'/', 0, 0), caso.section(u'/', 1, 1)), caso.section(u'/', 2));
    EXPECT_FALSE(ValidaDigitosOrden(u"1234567"_s, u"12345678"_s, u"05"));
}

TEST(ObjetoUtil, TellsTheCharactersOfEachKindOfText) {
    const struct {
        QString textos; ///< parted by "~"
        bool digitos, letrasODigitos, deNombre;
    } casos[] = {{u"0123"_s, true, true, true},
                 {u"A1z"_s, false, true, true},
                 {u"~1 2~José Güell .,-&'\"()/+*#:;_@%°"_s, false, false, true},
                 {u"Peña~a|b~a\tb~à~٣"_s, false, false, false}};
    for (const auto& [textos, digitos, letrasODigitos, deNombre] : casos) {
        for (const QString& texto : textos.split(u'~')) {
            EXPECT_EQ(ObjetoUtil::ValidaNumeroDoc(texto), digitos) << qPrintable(texto);
            EXPECT_EQ(ObjetoUtil::ValidaTextoDoc(texto), letrasODigitos) << qPrintable(texto);
            EXPECT_EQ(ObjetoUtil::ValidaCaracteres(texto), deNombre) << qPrintable(texto);
        }
    }
    EXPECT_TRUE(ObjetoUtil::ValidaRUC(u"20555123451"));
    for (const QString& malo : {u"20555123450"_s, u"2055512345"_s, u"205551234511"_s, u"2055512345A"_s})
        EXPECT_FALSE(ObjetoUtil::ValidaRUC(malo)) << qPrintable(malo);
}

class RecordChecksumTest : public BaseDePrueba {
  protected:
    RecordChecksumTest() {
        m_base->Ejecuta(u"CREATE TABLE LIBRE (a TEXT, b TEXT, c TEXT, d TEXT, e TEXT, f TEXT, g TEXT, cNumero TEXT)"_s);
    }
    [[nodiscard]] QString De(const QString& tabla, int primeros, const QVariantList& valores) {
        Registro registro(m_base->Describe(tabla));
        for (int i = 0; i < valores.size(); ++i)
            registro.Pon(i, valores[i]);
        return ChecksumRegistro(registro, primeros);
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
