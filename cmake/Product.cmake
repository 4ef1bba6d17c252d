# What the program says of itself. Whoever publishes it gives these at configuration time.
set(SPOOLWRIGHT_VERSION "${PROJECT_VERSION}" CACHE STRING "The version that the program shows")
set(SPOOLWRIGHT_BUILD "1" CACHE STRING "The build number that the program shows")
set(SPOOLWRIGHT_DEVELOPER "l'équipe Spoolwright" CACHE STRING "Who developed it")
set(SPOOLWRIGHT_WEBSITE "https://spoolwright.example/" CACHE STRING "Its web site")
set(SPOOLWRIGHT_EMAIL "contact@spoolwright.example" CACHE STRING "Its contact address")
set(SPOOLWRIGHT_RIGHTS_HOLDER "Spoolwright" CACHE STRING "Whom the rights belong to")
set(SPOOLWRIGHT_RIGHTS_YEAR "2026" CACHE STRING "The year of the rights line")
