#include "widgets/FileDialogBoxes.h"

#include "widgets/ActiveForm.h"

#include <QFileDialog>
#include <QFileInfo>

namespace xa518 {

using namespace Qt::StringLiterals;

QString DialogosDeArchivoEnPantalla::PideArchivo(const ArchivoPedido& pedido) {
    const QFileInfo sugerido(pedido.sugerido);
    QFileDialog dialogo(FormaActiva(), pedido.titulo, sugerido.path(), u"%1 (*.%2)"_s.arg(pedido.tipo, pedido.sufijo));
    dialogo.setAcceptMode(QFileDialog::AcceptSave);
    dialogo.setDefaultSuffix(pedido.sufijo);
    dialogo.selectFile(sugerido.fileName());
    return dialogo.exec() == QDialog::Accepted ? dialogo.selectedFiles().constFirst() : QString();
}

QString DialogosDeArchivoEnPantalla::PideCarpeta(const QString& titulo, const QString& desde) {
    return QFileDialog::getExistingDirectory(FormaActiva(), titulo, desde);
}

} // namespace xa518
