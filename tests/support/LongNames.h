#pragma once

#include <QtCore/QByteArray>

namespace reelhouse::tests {

/// A document with a stock in which every text is longer than its place, one without a place to
/// break it.
inline QByteArray longNames()
{
    const QByteArray type = "Acrylonitrile styrène acrylate renforcé de fibres de carbone courtes";
    const QByteArray brand = "Manufacture européenne de filaments techniques de Haute-Savoie";
    const QByteArray range = "Collection limitée des couleurs nacrées à paillettes de l'automne";
    const QByteArray place = "Grande armoire métallique du fond de l'atelier, troisième étagère";
    const QByteArray word(70, 'W');
    const auto named = [](const QByteArray& name) { return "[{\"name\":\"" + name + "\"}]"; };
    return R"({"schemaVersion":1,"types":[{"iconName":"drop.fill","name":")" + type
        + R"("},{"iconName":"sparkles","name":")" + word + R"("}],"brands":)" + named(brand)
        + R"(,"ranges":)" + named(range) + R"(,"locations":)" + named(place)
        + R"(,"filaments":[{"type":")" + type + R"(","brand":")" + brand + R"(","range":")" + range
        + R"(","location":")" + place
        + R"(","colorHex":"#1A237E","colorName":"Bleu outremer profond nacré à paillettes",)"
          R"("notes":"Sécher huit heures à 80 degrés avant usage.\nBuse durcie.","spoolsCount":1234567,)"
          R"("openedSpoolsCount":1000000,"dateAdded":"2025-03-14T09:26:53Z"},{"type":")"
        + word + R"(","colorHex":"#FFFFFF","colorName":")" + word + R"(","notes":")" + word
        + R"(","spoolsCount":1,"openedSpoolsCount":1,"dateAdded":"2025-03-14T09:26:53Z"}]})";
}

} // namespace reelhouse::tests
