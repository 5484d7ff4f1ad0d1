#include "detail/DetailFixture.h"

#include "data/Transaction.h"

#include <QRegularExpression>

namespace xa518::prueba {

namespace {

void LlenaCatalogo(const BaseTemporal& base) {
    Transaccion transaccion = base->Comienza();
    const auto documento = [&](const QString& tipo, const QString& corto, const QString& largo, const QString& dato) {
        base.Param(u"044"_s, tipo,
                   Funcion({{32, corto},
                            {46, largo},
                            {56, tipo.rightJustified(2, u'0')},
                            {82, u"1"_s},
                            {128, dato},
                            {130, u"0"_s}}));
    };
    documento(u"1"_s, u"DNI"_s, u"08"_s, u"5"_s);
    documento(u"6"_s, u"RUC"_s, u"11"_s, u"5"_s);
    documento(u"7"_s, u"PASAPORTE"_s, u"12"_s, u"0"_s);
    for (const QString& codigo : {u"01"_s, u"02"_s, u"03"_s, u"07"_s, u"08"_s, u"12"_s, u"99"_s})
        base.Param(u"233"_s, codigo,
                   Funcion({{1, codigo == u"07" ? u"NOTA DE CREDITO"_s : u"COMPROBANTE"_s},
                            {64, codigo == u"02" ? u"0"_s : u"1"_s}}));
    for (const QString& clase : {u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s, u"6"_s})
        base.Param(u"953"_s, clase + u"010909200501"_s,
                   Funcion({{2, u"0.9"_s}, {21, u"0.0"_s + clase}, {31, clase + u".00"_s}}));
    transaccion.Confirma();
}

/// Everything that was typed and chosen in a form, without what a field adds to it when the focus goes: the zeros
/// before, the decimals and the groups.
QStringList Escrito(const QWidget& forma) {
    static const QRegularExpression adorno(u"^0+(?=.)|,|[.]0*$|(?<=[.]\\d)0$"_s);
    QStringList lleno;
    for (const auto* campo : forma.findChildren<QLineEdit*>())
        lleno += campo->isEnabled() ? campo->displayText().remove(adorno) : QString(); // the others are computed
    for (const auto* lista : forma.findChildren<QComboBox*>())
        lleno += lista->currentText();
    for (const auto* opcion : forma.findChildren<QAbstractButton*>())
        lleno += opcion->isChecked() ? opcion->objectName() : QString();
    return lleno;
}

} // namespace

DetailTest::DetailTest(const QString& periodo) {
    LlenaCatalogo(m_base);
    m_entorno.declarado = *Periodo::DeTabla(periodo);
}

void DetailTest::Teclea(const QString& teclas) {
    for (const QChar c : teclas) {
        if (c == u'\r')
            Pulsa(Qt::Key_Return);
        else if (c == u'\b')
            Pulsa(Qt::Key_Backspace);
        else {
            QTest::keyClick(QApplication::focusWidget(), c.toLatin1());
        }
    }
}

void DetailTest::Pulsa(Qt::Key tecla, Qt::KeyboardModifiers con) {
    QTest::keyClick(QApplication::focusWidget(), tecla, con);
}

void DetailTest::Sube(QWidget& forma, const QString& boton, const QList<Paso>& pasos) {
    for (const Paso& paso : pasos) {
        SCOPED_TRACE(paso.mensajes.toStdString());
        if (!paso.campo.isEmpty()) {
            Clic(forma, paso.campo);
            Pulsa(Qt::Key_Home);
        }
        for (const QString& mensaje : paso.mensajes.split(u'\n'))
            m_avisos.Espera({paso.icono, mensaje, forma.windowTitle()});
        Teclea(paso.teclas);
        const QStringList escrito = Escrito(forma);
        Clic(forma, boton);
        EXPECT_EQ(Foco(), paso.foco);
        EXPECT_EQ(Escrito(forma), escrito);
        m_avisos.Comprueba();
    }
}

void DetailTest::SinBase(QWidget& forma, const QString& boton) {
    const QStringList escrito = Escrito(forma);
    const QString ruta = m_base.Ruta();
    QString texto = u"El archivo de la base de datos ya no está en su lugar."_s;
    if (HayServidorDePrueba()) {
        CortaLaConexion(*m_abierta);
        texto = u"Se perdió la conexión con el servidor de la base de datos. Lo que ya se había grabado está a salvo."
                " Revise lo último que hizo y repítalo si hace falta: el programa volverá a conectarse."_s;
    } else {
        ASSERT_TRUE(QFile::rename(ruta, ruta + u'_'));
    }
    AvisosDelPrograma().Espera({Icono::Critico, texto, forma.windowTitle()});
    Clic(forma, boton);
    AvisosDelPrograma().Comprueba();
    EXPECT_TRUE(forma.isVisible());
    EXPECT_EQ(Escrito(forma), escrito);
    if (!HayServidorDePrueba()) {
        ASSERT_TRUE(QFile::rename(ruta + u'_', ruta));
    }
}

QString DetailTest::Foco() {
    const QWidget* campo = QApplication::focusWidget();
    return campo ? campo->objectName() : QString();
}

} // namespace xa518::prueba
