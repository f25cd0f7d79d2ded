#pragma once
// The platform of the screen benchmarks: Qt's, with message boxes that answer at once and are counted, so
// that a benchmark can tell a box that stopped the work it measures.
#include "core/ui/PlataformaQt.h"

#include <memory>

class PlataformaBanco : public ui::PlataformaQt {
public:
    int cajas = 0;
    // The program's folder, where the installation files are found; empty for the benchmark's own.
    QString rutaPrograma;
    QString RutaPrograma() override { return rutaPrograma.isEmpty() ? ui::PlataformaQt::RutaPrograma() : rutaPrograma; }
    int MsgBox(const QString&, int, const QString&) override {
        ++cajas;
        return ui::vbOK;
    }
};

// Installed once for the whole run.
inline PlataformaBanco& InstalaPlataformaBanco() {
    static PlataformaBanco* p = [] {
        auto nueva = std::make_unique<PlataformaBanco>();
        PlataformaBanco* r = nueva.get();
        ui::InstalaPlataforma(std::move(nueva));
        return r;
    }();
    return *p;
}
