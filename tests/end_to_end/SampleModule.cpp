#include "end_to_end/SampleModule.h"

#include "batch/Batch.h"

namespace xa518::prueba {

void ModuloDeMuestra::SetUp() {
    const QStringList importados{u"--percepciones"_s, carpeta + u"/EJEMPLO"_s, u"--hoy"_s, u"21/11/2026"_s};
    const auto declara = [&](const QString& periodo, const QStringList& pago) {
        Lote(QStringList{u"declarar"_s, u"--ruc"_s, kRuc, u"--periodo"_s, periodo} + importados + pago);
    };
    Consola({u"--instalar"_s, u"--carpeta"_s, carpeta, u"--ejemplo"_s});
    declara(u"202609"_s, {u"--efectivo"_s});
    declara(u"202610"_s, {u"--efectivo"_s});
    Consola({u"--enviar"_s, kRuc, u"202609"_s});
    Lote({u"imprimir"_s, u"--ruc"_s, kRuc, u"--periodo"_s, u"202610"_s, u"--pdf"_s, raiz.filePath(u"hoja.pdf"_s),
          u"--hoy"_s, u"21/11/2026"_s}); // and so there is a report for the launcher to show
    declara(u"202609"_s, {u"--cheque"_s, u"17"_s, u"--banco"_s, u"02"_s, u"--rectifica"_s});
    ASSERT_TRUE(fallas.isEmpty()) << fallas.toStdString();
}

void ModuloDeMuestra::Consola(const QStringList& orden) {
    QTextStream errores(&fallas);
    (void)EjecutaConsola(QStringList{u"consola"_s} + orden, {nada, errores}, entorno);
}

void ModuloDeMuestra::Lote(const QStringList& orden) {
    QTextStream errores(&fallas);
    (void)EjecutaLote(QStringList{u"xa518-lote"_s} + orden, {perfil, nada, errores});
}

} // namespace xa518::prueba
