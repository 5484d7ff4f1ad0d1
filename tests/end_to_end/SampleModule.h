#pragma once

#include "app/Forms.h"
#include "launcher/CommandLine.h"
#include "platform/Clock.h"
#include "platform/ProfileFile.h"
#include "support/Test.h"

#include <QTextStream>

namespace xa518::prueba {

/// The sample company, installed as a person does it: one period registered, one rectified whose first copy was sent,
/// and a report that was printed.
class ModuloDeMuestra : public testing::Test {
  protected:
    void SetUp() override;

    const QString kRuc = QStringLiteral("20990518018");
    QTemporaryDir raiz;
    QString carpeta{raiz.filePath(QStringLiteral("xa518"))};
    RelojFijo reloj{QDateTime({2026, 11, 21}, {10, 0})};
    ArchivoPerfil perfil{raiz.filePath(QStringLiteral("XA000.INI"))};
    EntornoConsola entorno{reloj, perfil.Ruta(), carpeta, QStringLiteral("CONTADOR"), FormulariosConocidos()};

  private:
    void Consola(const QStringList& orden);
    void Lote(const QStringList& orden);

    QString fallas;
    QString descartado;
    QTextStream nada{&descartado};
};

} // namespace xa518::prueba
