#include "DataFixture.h"

#include "data/DocumentTypes.h"

namespace xa518 {
namespace {

using namespace Qt::StringLiterals;

/// A row of catalogue "044" from the pieces that its columns hold.
QString FilaTipo(const QString& corto, const QString& largo, const QString& orden, const QString& ofrecidoEn,
                 QChar tipoDato, QChar tipoLongitud) {
    QString fila(130, u' ');
    const auto pon = [&fila](qsizetype columna, const QString& texto) {
        fila.replace(columna - 1, texto.size(), texto);
    };
    pon(1, u"DOCUMENTO"_s);
    pon(32, corto);
    pon(46, largo);
    pon(49, ofrecidoEn);
    pon(56, orden);
    pon(128, tipoDato);
    pon(130, tipoLongitud);
    return fila;
}

class DocumentTypesTest : public BaseDePrueba {
  protected:
    DocumentTypesTest() {
        CreaCatalogo();
        Param(u"044"_s, u"1"_s, FilaTipo(u"DNI"_s, u"08"_s, u"02"_s, u"11"_s, u'0', u'1'));
        Param(u"044"_s, u"4"_s, FilaTipo(u"CARNE EXT. LARGO"_s, u"12"_s, u"03"_s, u"10"_s, u'5', u'0'));
        Param(u"044"_s, u"7"_s, FilaTipo(u"PASAPORTE"_s, u"12"_s, u"01"_s, u"10"_s, u'5', u'0'));
    }
};

TEST_F(DocumentTypesTest, AreOfferedByFlagInTheOrderOfTheirKey) {
    const auto items = [this](int bandera) {
        QStringList lista;
        for (const TipoDocumento& tipo : DocumentosOfrecidos(*m_base, bandera))
            lista.append(tipo.Item());
        return lista;
    };
    const QStringList esperados = {
        u"07  -  "_s + u"PASAPORTE"_s.leftJustified(60) + u"12 5 0"_s,
        u"01  -  "_s + u"DNI"_s.leftJustified(60) + u"08 0 1"_s,
        u"04  -  "_s + u"CARNE EXT. "_s.leftJustified(60) + u"12 5 0"_s,
    };
    EXPECT_EQ(items(49), esperados);
    EXPECT_EQ(items(50), esperados.mid(1, 1));
    EXPECT_EQ(items(51), QStringList());
}

TEST_F(DocumentTypesTest, DecideWhichNumbersFit) {
    struct Caso {
        QString tipo;
        QString numero;
        bool pasa;
    };
    const QList<Caso> casos = {
        {u"1"_s, u"12345678"_s, true},     {u"01"_s, u"12345678"_s, true},  {u" 1 "_s, u"12345678"_s, true},
        {u"1"_s, u"1234567"_s, false},     {u"1"_s, u"123456789"_s, false}, {u"1"_s, u"1234567A"_s, false},
        {u"4"_s, u"AB12"_s, true},         {u"4"_s, u"AB12-3"_s, false},    {u"4"_s, u"1234567890123"_s, false},
        {u"4"_s, u"123456789012"_s, true}, {u"4"_s, u"ñ1"_s, false},        {u"9"_s, u"123"_s, false},
        {u""_s, u"12345678"_s, false},     {u"1"_s, u"  "_s, false},        {u"6"_s, u"20555123451"_s, false}, // no row
    };
    for (const Caso& caso : casos)
        EXPECT_EQ(ValidaDocumento(*m_base, caso.tipo, caso.numero), caso.pasa)
            << caso.tipo.toStdString() << ' ' << caso.numero.toStdString();
}

TEST_F(DocumentTypesTest, LetTheRucsLengthDependOnItsFlag) {
    Param(u"044"_s, u"6"_s, FilaTipo(u"RUC"_s, u"11"_s, u"01"_s, u"1"_s, u'0', u'0'));
    EXPECT_TRUE(ValidaDocumento(*m_base, u"6"_s, u"2055512345"_s));
    m_base->Ejecuta(u"UPDATE PARAM SET Funcion=? WHERE Argumento='6'"_s,
                    {FilaTipo(u"RUC"_s, u"11"_s, u"01"_s, u"1"_s, u'0', u'1')});
    EXPECT_FALSE(ValidaDocumento(*m_base, u"6"_s, u"2055512345"_s));
    EXPECT_TRUE(ValidaDocumento(*m_base, u"06"_s, u"20555123451"_s));
}

class DeclarantsTest : public DocumentTypesTest {
  protected:
    DeclarantsTest() {
        Corre({u"INSERT INTO CLAVES VALUES ('JEFA','0')"_s,
               u"INSERT INTO CONT VALUES (6,'20555123451','B','AUX',1), (6,'20123456','A','AUX',2), "
               "(6,'20444123450','C','O''X',2), (1,'10101010','D','AUX',2)"_s});
    }
    [[nodiscard]] QString Elegibles(const QString& formulario, const QString& usuario) {
        const ConsultaSql consulta = SqlDeclarantes(*m_base, formulario, usuario);
        QVariantList valores;
        for (const QString& valor : consulta.valores)
            valores.append(valor);
        QStringList lista;
        Registros filas = m_base->Lee(consulta.texto, valores);
        while (filas.Siguiente())
            lista.append(filas.Texto(u"Doc_id_d"));
        return lista.join(u'|');
    }
};

TEST_F(DeclarantsTest, AreAllOrOnesOwnAndOfAnyLengthByDefault) {
    // With no row of the RUC the default row sets no length.
    EXPECT_EQ(Elegibles(u"0518"_s, u"JEFA"_s), u"20123456|20444123450|20555123451"_s);
    EXPECT_EQ(Elegibles(u"0518"_s, u"AUX"_s), u"20123456|20555123451"_s);
    EXPECT_EQ(Elegibles(u"0518"_s, u"O'X"_s), u"20444123450"_s);
    EXPECT_EQ(Elegibles(u"0518"_s, u""_s), u""_s);
    EXPECT_EQ(Elegibles(u"0275"_s, u"JEFA"_s), u"20123456|20444123450"_s);
    Param(u"044"_s, u"6"_s, FilaTipo(u"RUC"_s, u"11"_s, u"01"_s, u"1"_s, u'5', u'1'));
    EXPECT_EQ(Elegibles(u"0518"_s, u"AUX"_s), u"20555123451"_s);
    EXPECT_EQ(Elegibles(u"0275"_s, u"JEFA"_s), u"20444123450"_s);
}

} // namespace
} // namespace xa518
