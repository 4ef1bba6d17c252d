#pragma once

#include <QtCore/QByteArray>

namespace reelhouse::tests {

/// A document as it is written: every key is present, and some values are odd.
inline QByteArray wholeDocument()
{
    return R"({
  "brands" : [
    {
      "name" : "Filéo"
    },
    {
      "name" : "Trois\/D"
    }
  ],
  "filaments" : [
    {
      "brand" : "Filéo",
      "colorHex" : "#E53935",
      "colorName" : "Rouge",
      "dateAdded" : "2025-03-14T09:26:53Z",
      "location" : "Étagère A",
      "notes" : "Sécher 4 h\n\"avant\" usage",
      "openedSpoolsCount" : 5,
      "range" : "Matte",
      "spoolsCount" : 2,
      "type" : "PLA"
    },
    {
      "brand" : "Trois\/D",
      "colorHex" : "﻿#",
      "colorName" : "",
      "dateAdded" : "1969-12-31T23:59:59Z",
      "location" : "Étagère A",
      "notes" : "\u0000",
      "openedSpoolsCount" : -1,
      "range" : "Matte",
      "spoolsCount" : -3,
      "type" : ""
    }
  ],
  "locations" : [
    {
      "name" : "Étagère A"
    }
  ],
  "ranges" : [
    {
      "name" : "Matte"
    }
  ],
  "schemaVersion" : 1,
  "types" : [
    {
      "iconName" : "drop.fill",
      "name" : "PLA"
    },
    {
      "iconName" : "",
      "name" : ""
    }
  ]
})";
}

} // namespace reelhouse::tests
