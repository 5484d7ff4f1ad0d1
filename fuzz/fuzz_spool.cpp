#include "reports/SpoolReport.h"

#include <QBuffer>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace xa518;

/// A spool file, whatever it holds: opened, its pages walked, printed into nothing.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t largo) {
    auto entrada = std::make_unique<QBuffer>();
    entrada->setData(QByteArray(reinterpret_cast<const char*>(bytes), static_cast<qsizetype>(largo)));
    entrada->open(QIODevice::ReadOnly);
    InformeSpool informe(std::move(entrada));
    const int paginas = informe.Paginas();
    if (paginas < 0 || paginas > InformeSpool::kPaginasMaximas)
        std::abort();
    size_t comandos = 0;
    for (const int pagina : {0, paginas / 2, paginas - 1, paginas})
        informe.RecorrePagina(pagina, [&](const Comando& /*comando*/) { ++comandos; });
    if (comandos > 4 * (largo + 1))
        std::abort();
    return 0;
}
