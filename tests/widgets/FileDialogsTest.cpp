#include "widgets/FileDialogBoxes.h"

#include "support/FormDriver.h"

namespace {

TEST(FileDialogs, ANameWithoutEndingGetsTheKindsOwn) {
    const QTemporaryDir carpeta;
    DialogosDeArchivoEnPantalla dialogos;
    const auto pide = [&](const QString& nombre, Qt::Key tecla) {
        AlAbrir({}, [&](QWidget& dialogo) {
            auto& campo = De<QLineEdit>(dialogo, u"fileNameEdit"_s);
            EXPECT_EQ(campo.text(), u"Anexo.pdf"_s);
            campo.setText(nombre);
            QTest::keyClick(&campo, tecla);
        });
        return dialogos.PideArchivo({.titulo = u"Guardar"_s,
                                     .sugerido = carpeta.filePath(u"Anexo.pdf"_s),
                                     .tipo = u"Documentos PDF"_s,
                                     .sufijo = u"pdf"_s});
    };
    EXPECT_EQ(pide(u"hoja"_s, Qt::Key_Return), carpeta.filePath(u"hoja.pdf"_s));
    EXPECT_EQ(pide(u"hoja.txt"_s, Qt::Key_Return), carpeta.filePath(u"hoja.txt"_s));
    EXPECT_EQ(pide(u"hoja"_s, Qt::Key_Escape), QString());
}

} // namespace
