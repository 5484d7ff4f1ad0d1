#include "launcher/ReportMove.h"

#include "data/Base.h"
#include "launcher/SpoolList.h"
#include "reports/SharedReports.h"
#include "reports/SpoolRegistry.h"

#include <QFile>
#include <QFileInfo>
#include <QSet>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

void ExigeIgual(const TextosDeInformes& textos, const QFile& copia, const QString& archivo) {
    if (!textos.EsIgual(copia, archivo))
        throw ErrorBase(NumeroError::FallaDelMotor,
                        u"El informe %1 no quedó igual en la base nueva: no se ha mudado nada."_s.arg(archivo));
}

bool LlevaAlServidor(Base& destino, const QString& carpeta, const QString& archivo) {
    TextosDeInformes textos(destino);
    if (!textos.Agrega(carpeta, archivo))
        return false;
    ExigeIgual(textos, QFile(RutaDeInforme(carpeta, archivo)), archivo);
    return true;
}

/// The register follows a file that had to get another name.
bool TraeDelServidor(const TextosDeInformes& textos, Base& destino, const QString& carpeta, const QString& archivo) {
    const QString local = textos.Trae(carpeta, archivo);
    ExigeIgual(textos, QFile(RutaDeInforme(carpeta, local)), archivo);
    if (local != archivo)
        destino.Ejecuta(u"UPDATE SPOOL SET Archivo = ? WHERE Archivo = ?"_s, {local, archivo});
    return true;
}

} // namespace

InformesMudados MudaInformes(Base& origen, Base& destino, const QString& carpeta,
                             const std::function<void()>& alLlevarUno) {
    InformesMudados mudados;
    const TextosDeInformes textos(origen);
    const QHash<QString, int> guardados = textos.Hojas();
    for (const QString& archivo : ArchivosDeInformes(origen)) {
        bool llevado = QFileInfo(RutaDeInforme(carpeta, archivo)).isFile();
        if (EsDeServidor(destino.Ruta()))
            llevado = LlevaAlServidor(destino, carpeta, archivo);
        else if (guardados.contains(archivo.toUpper()))
            llevado = TraeDelServidor(textos, destino, carpeta, archivo);
        ++(llevado ? mudados.llevados : mudados.sinTexto);
        alLlevarUno();
    }
    return mudados;
}

QStringList ArchivosDeInformes(Base& base) {
    QStringList archivos;
    QSet<QString> vistos;
    for (const InformeRegistrado& informe : Informes(base, {}, {}).Lista()) {
        const QString igualado = informe.archivo.toUpper();
        if (igualado.isEmpty() || vistos.contains(igualado))
            continue;
        vistos.insert(igualado);
        archivos.append(informe.archivo);
    }
    return archivos;
}

} // namespace xa518
