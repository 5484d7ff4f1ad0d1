#include "import/FormatGuide.h"
#include "import/ImportFixture.h"

#include <QRegularExpression>

namespace {

/// The words of a page, whatever it marks them up with.
QString Palabras(QString texto) {
    static const QRegularExpression marcas(u"<[^>]*>|[|`*\\\\]"_s);
    return texto.replace(marcas, u" "_s)
        .replace(u"&amp;"_s, u"&"_s)
        .replace(u"&lt;"_s, u"<"_s)
        .replace(u"&gt;"_s, u">"_s)
        .simplified();
}

QString Pagina(const QString& ruta) {
    return Palabras(QString::fromUtf8(BytesDe(QStringLiteral(XA518_SOURCE_DIR) + ruta)));
}

TEST(FormatGuide, TheExamplesPass) {
    for (const FormatoImportacion* formato : {&FormatoPercepciones(), &FormatoVentas()}) {
        Escenario escenario(u"202610"_s, *formato);
        const ResultadoImportacion resultado = escenario.Importa({formato->ejemplo.toString()});
        EXPECT_EQ(std::pair(resultado.transferidos, resultado.rechazados), std::pair(1LL, 0LL));
    }
}

/// The guide, the help and the batch tool tell the same of every field.
TEST(FormatGuide, GuideAndHelpAgreeWithTheCode) {
    for (const QString& pagina : {Pagina(u"/docs/guia.md"_s), Pagina(u"/help/formato.html"_s)}) {
        const auto dice = [&](const QString& frase) {
            EXPECT_TRUE(pagina.contains(Palabras(frase))) << pagina.left(40).toStdString() << frase.toStdString();
        };
        for (const QString& regla : ReglasDeArchivo())
            dice(regla);
        for (const FormatoImportacion* formato : {&FormatoPercepciones(), &FormatoVentas()}) {
            QStringList filas;
            for (const auto& [nombre, obligatorio, forma] : formato->descripciones)
                filas.append(u"%1 %2 %3 %4"_s.arg(filas.size() + 1).arg(nombre, obligatorio, forma));
            dice(filas.join(u' '));
            dice(formato->ejemplo.toString());
        }
    }
}

} // namespace
