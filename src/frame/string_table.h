/* The module's string table. Included by the C++ sources and by the Windows
 * resource script, so it holds only preprocessor definitions. Texts are in
 * Windows-1252 (octal escapes), the ANSI code page the POSIX build uses. */
#ifndef QNUTIL_FRAME_STRING_TABLE_H
#define QNUTIL_FRAME_STRING_TABLE_H

#define IDS_NO_CALCULATOR 1
#define IDS_LOGFILE_SUBSTITUTED 2
#define IDS_NO_LOGFILE 3
#define IDS_NO_MB_INI 4
#define IDS_INI_ENTRY_MISSING 5

#define TEXT_NO_CALCULATOR "Keine Verbindung zum Calculator(COM-Objekt)"
#define TEXT_LOGFILE_SUBSTITUTED                                                                 \
  "Die Datei %s konnte nicht als aktuelle Logdatei ge\366ffnet werden. \n\nMeldungen werden in " \
  "der Datei %s protokolliert!"
#define TEXT_NO_LOGFILE \
  "Es konnte keine Logdatei im Ausf\374hrungsverzeichnis angelegt oder ge\366ffnet werden!"
#define TEXT_NO_MB_INI "Es konnte keine mb.ini (mb[1-9].ini) gefunden werden!"
#define TEXT_INI_ENTRY_MISSING "Sektion %s oder Eintrag %s in %s nicht gefunden!"

#endif
