#include "widgets/FrmTexto.h"

#include "support/FormDriver.h"

#include <QTextBrowser>

namespace {

TEST(FrmTextoTest, ALinkOfAPageLeadsToTheTextBesideItAndBack) {
    const QTemporaryDir carpeta;
    EscribeEn(carpeta.filePath(u"página.md"_s),
              "# Licencias\n\n| Parte | Texto |\n|---|---|\n| Motor | [la suya](motor.txt) |\n");
    EscribeEn(carpeta.filePath(u"motor.txt"_s), "Autor: José <jose@ejemplo.invalid>\n  1. *Nada* se promete.");
    FrmTexto forma(u"Licencias"_s);
    forma.PonArchivo(carpeta.filePath(u"página.md"_s));
    Muestra(forma);
    auto& visor = De<QTextBrowser>(forma, "visor");
    const QString pagina = visor.toPlainText();
    EXPECT_TRUE(pagina.startsWith(u"Licencias"_s) && !pagina.contains(u'|')) << qPrintable(pagina);

    QTest::keyClick(&visor, Qt::Key_Tab); // to the link
    QTest::keyClick(&visor, Qt::Key_Return);
    EXPECT_EQ(visor.toPlainText(), u"Autor: José <jose@ejemplo.invalid>\n  1. *Nada* se promete."_s);
    Clic(forma, "CmdAtras");
    EXPECT_EQ(visor.toPlainText(), pagina);
    EXPECT_FALSE(De(forma, "CmdAtras").isVisible());
}

} // namespace
