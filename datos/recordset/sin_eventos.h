#pragma once
// Mientras vive, el conjunto cambia sin avisar a la pantalla: ni validaciones ni diálogos. Sirve a
// lo que repone filas que ya estuvieron bien.
#include "datos/recordset/conjunto.h"

class SinEventos {
public:
    explicit SinEventos(ConjuntoDatos& d) : d_(d) {
        for (auto* evento : eventos())
            guardados_.push_back(std::exchange(*evento, nullptr));
        for (int i = 0; i < d.FieldCount(); ++i) {
            campos_.push_back(std::exchange(d.Fields(i).OnChange, nullptr));
            validan_.push_back(std::exchange(d.Fields(i).OnValidate, nullptr));
        }
    }
    ~SinEventos() {
        size_t n = 0;
        for (auto* evento : eventos())
            *evento = std::move(guardados_[n++]);
        for (int i = 0; i < d_.FieldCount(); ++i) {
            d_.Fields(i).OnChange = std::move(campos_[size_t(i)]);
            d_.Fields(i).OnValidate = std::move(validan_[size_t(i)]);
        }
    }
    SinEventos(const SinEventos&) = delete;
    SinEventos& operator=(const SinEventos&) = delete;

private:
    std::vector<std::function<void()>*> eventos() const {
        return {&d_.BeforeInsert, &d_.AfterInsert,  &d_.OnNewRecord, &d_.BeforeEdit,
                &d_.AfterEdit,    &d_.BeforePost,   &d_.AfterPost,   &d_.BeforeDelete,
                &d_.AfterDelete,  &d_.BeforeScroll, &d_.AfterScroll, &d_.BeforeCancel,
                &d_.AfterCancel};
    }
    ConjuntoDatos& d_;
    std::vector<std::function<void()>> guardados_;
    std::vector<std::function<void(Campo&)>> campos_;
    std::vector<std::function<void(Campo&, const Valor&)>> validan_;
};
