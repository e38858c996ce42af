<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>CardFace</name>
    <message>
        <source>In deck</source>
        <translation>Im Deck</translation>
    </message>
</context>
<context>
    <name>CardsPage</name>
    <message>
        <source>No applications found</source>
        <translation>Keine Apps gefunden</translation>
    </message>
    <message>
        <source>No matches</source>
        <translation>Keine Treffer</translation>
    </message>
</context>
<context>
    <name>CategoryMenu</name>
    <message>
        <source>Deck</source>
        <translation>Deck</translation>
    </message>
</context>
<context>
    <name>Deck</name>
    <message>
        <source>Streaming</source>
        <translation>Streaming</translation>
    </message>
    <message>
        <source>Gaming</source>
        <translation>Spiele</translation>
    </message>
    <message>
        <source>Vol −</source>
        <translation>Lautstärke −</translation>
    </message>
    <message>
        <source>Vol +</source>
        <translation>Lautstärke +</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>Stumm</translation>
    </message>
</context>
<context>
    <name>DeckTypography</name>
    <message>
        <source>Tap a key — the Mac opens it.</source>
        <translation>Taste antippen – der Computer öffnet sie.</translation>
    </message>
</context>
<context>
    <name>DraftOffer</name>
    <message>
        <source>The deck has changed since then.</source>
        <translation>Das Deck wurde seitdem geändert.</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>Verwerfen</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Wiederherstellen</translation>
    </message>
</context>
<context>
    <name>EditorHeader</name>
    <message>
        <source>Deck name</source>
        <translation>Name des Decks</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Save to iPhone</source>
        <translation>Auf dem iPhone speichern</translation>
    </message>
    <message>
        <source>Ctrl+S</source>
        <translation>Strg+S</translation>
    </message>
</context>
<context>
    <name>FilledKeyCell</name>
    <message>
        <source>Its Shortcut is missing</source>
        <translation>Der Kurzbefehl dazu fehlt</translation>
    </message>
    <message>
        <source>Not installed</source>
        <translation>Nicht installiert</translation>
    </message>
    <message>
        <source>Key %1 of %2</source>
        <translation>Taste %1 von %2</translation>
    </message>
    <message>
        <source>Launching</source>
        <translation>Wird gestartet</translation>
    </message>
    <message>
        <source>It worked</source>
        <translation>Hat funktioniert</translation>
    </message>
</context>
<context>
    <name>FirstShortcutTip</name>
    <message>
        <source>Your first Shortcut key. Save the deck, then tap the key on the iPhone: the Shortcut runs here. The first run may ask for permission.</source>
        <translation>Ihre erste Kurzbefehl-Taste. Speichern Sie das Deck und tippen Sie auf dem iPhone auf die Taste: Der Kurzbefehl läuft hier. Beim ersten Mal wird möglicherweise um Erlaubnis gefragt.</translation>
    </message>
    <message>
        <source>Got It</source>
        <translation>Verstanden</translation>
    </message>
</context>
<context>
    <name>GlassDeckKeyView</name>
    <message>
        <source>Missing</source>
        <translation>Fehlt</translation>
    </message>
</context>
<context>
    <name>GlassDeckTileView</name>
    <message>
        <source>Missing</source>
        <translation>Fehlt</translation>
    </message>
    <message>
        <source>Launching</source>
        <translation>Wird gestartet</translation>
    </message>
    <message>
        <source>Running</source>
        <translation>Läuft</translation>
    </message>
</context>
<context>
    <name>GlintTextField</name>
    <message>
        <source>Clear the search</source>
        <translation>Suche leeren</translation>
    </message>
</context>
<context>
    <name>HomeScreenMinusBadge</name>
    <message>
        <source>Remove key</source>
        <translation>Taste entfernen</translation>
    </message>
</context>
<context>
    <name>LibraryCard</name>
    <message>
        <source>In deck</source>
        <translation>Im Deck</translation>
    </message>
    <message>
        <source>The deck is full</source>
        <translation>Das Deck ist voll</translation>
    </message>
    <message>
        <source>Adds this key to the deck</source>
        <translation>Fügt diese Taste dem Deck hinzu</translation>
    </message>
</context>
<context>
    <name>LibraryPane</name>
    <message>
        <source>App Library</source>
        <translation>Apps</translation>
    </message>
    <message>
        <source>Action Library</source>
        <translation>Aktionen</translation>
    </message>
</context>
<context>
    <name>LibraryTabs</name>
    <message>
        <source>Libraries</source>
        <translation>Bibliotheken</translation>
    </message>
</context>
<context>
    <name>ListenerService</name>
    <message>
        <source>Allow this Shortcut on your Mac (System Settings → Privacy &amp; Security → Automation), then try again.</source>
        <translation>Erlauben Sie diesen Kurzbefehl auf dem Computer (Systemeinstellungen → Datenschutz &amp; Sicherheit → Automation) und versuchen Sie es erneut.</translation>
    </message>
    <message>
        <source>Port %1 is already in use. Quit the other Glintboard Agent first.</source>
        <translation>Port %1 wird bereits verwendet. Beenden Sie zuerst den anderen Glintboard Agent.</translation>
    </message>
</context>
<context>
    <name>MenuBarView</name>
    <message>
        <source>iPhone connected</source>
        <translation>iPhone verbunden</translation>
    </message>
    <message>
        <source>Ready for iPhone</source>
        <translation>Bereit für das iPhone</translation>
    </message>
    <message>
        <source>Waiting for iPhone</source>
        <translation>Warten auf das iPhone</translation>
    </message>
    <message>
        <source>Connection failed</source>
        <translation>Verbindung fehlgeschlagen</translation>
    </message>
    <message>
        <source>Starting…</source>
        <translation>Wird gestartet&#xa0;…</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Restart Agent</source>
        <translation>Agent neu starten</translation>
    </message>
    <message>
        <source>Edit Deck</source>
        <translation>Deck bearbeiten</translation>
    </message>
    <message>
        <source>Show Pairing Code…</source>
        <translation>Kopplungscode anzeigen&#xa0;…</translation>
    </message>
    <message>
        <source>Hide Pairing Code</source>
        <translation>Kopplungscode ausblenden</translation>
    </message>
    <message>
        <source>Unpair iPhone</source>
        <translation>iPhone entkoppeln</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Glintboard Agent</source>
        <translation>Glintboard Agent</translation>
    </message>
</context>
<context>
    <name>MenuItems</name>
    <message>
        <source>Ctrl+Q</source>
        <translation>Strg+Q</translation>
    </message>
</context>
<context>
    <name>PairingPanel</name>
    <message>
        <source>Scan with iPhone</source>
        <translation>Mit dem iPhone scannen</translation>
    </message>
    <message>
        <source>Scan to pair this iPhone again. This replaces the pairing on this Mac.</source>
        <translation>Scannen, um dieses iPhone erneut zu koppeln. Das ersetzt die Kopplung auf diesem Computer.</translation>
    </message>
    <message>
        <source>Open Glintboard on your iPhone and tap Pair. Point the camera at this code.</source>
        <translation>Öffnen Sie Glintboard auf dem iPhone und tippen Sie auf „Pair“. Richten Sie die Kamera auf diesen Code.</translation>
    </message>
    <message>
        <source>Manual code</source>
        <translation>Code zum Eintippen</translation>
    </message>
</context>
<context>
    <name>PairingQRCodeView</name>
    <message>
        <source>Pairing QR code</source>
        <translation>QR-Code zum Koppeln</translation>
    </message>
</context>
<context>
    <name>PhonePane</name>
    <message>
        <source>%1 / %2</source>
        <translation>%1 / %2</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n keys</source>
        <translation>
            <numerusform>%1 von %n Taste</numerusform>
            <numerusform>%1 von %n Tasten</numerusform>
        </translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Ctrl+Z</source>
        <translation>Strg+Z</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>Ctrl+Shift+Z</source>
        <translation>Strg+Umschalt+Z</translation>
    </message>
    <message>
        <source>Reset to default</source>
        <translation>Auf Standard zurücksetzen</translation>
    </message>
    <message>
        <source>The phone preview is live — %1 pushes it over LAN instantly</source>
        <extracomment>%1 is the button &quot;Save to iPhone&quot;</extracomment>
        <translation>Die Vorschau ist live – %1 überträgt sie sofort über das LAN</translation>
    </message>
    <message>
        <source>Save to iPhone</source>
        <translation>Auf dem iPhone speichern</translation>
    </message>
    <message>
        <source>The iPhone shows the Streaming deck only for now.</source>
        <translation>Das iPhone zeigt vorerst nur das Deck „Streaming“.</translation>
    </message>
    <message>
        <source>Drag a card onto the iPhone, or click a card to add it. Double-click a key to try it.</source>
        <translation>Eine Karte auf das iPhone ziehen oder anklicken, um sie hinzuzufügen. Eine Taste doppelklicken, um sie auszuprobieren.</translation>
    </message>
</context>
<context>
    <name>PhonePreviewView</name>
    <message>
        <source>Keys on the iPhone</source>
        <translation>Tasten auf dem iPhone</translation>
    </message>
</context>
<context>
    <name>ShortcutsPage</name>
    <message>
        <source>The first run may ask for permission on your Mac.</source>
        <translation>Beim ersten Ausführen fragt der Computer möglicherweise um Erlaubnis.</translation>
    </message>
    <message>
        <source>Open Shortcuts</source>
        <translation>Kurzbefehle öffnen</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>Aktualisieren</translation>
    </message>
    <message>
        <source>Shortcuts Library</source>
        <translation>Kurzbefehle</translation>
    </message>
    <message>
        <source>No Shortcuts yet</source>
        <translation>Noch keine Kurzbefehle</translation>
    </message>
    <message>
        <source>Create one in Shortcuts, then refresh.</source>
        <translation>Legen Sie in Kurzbefehle einen an und aktualisieren Sie dann.</translation>
    </message>
    <message>
        <source>Shortcuts could not be listed</source>
        <translation>Die Kurzbefehle konnten nicht aufgelistet werden</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Erneut versuchen</translation>
    </message>
    <message>
        <source>No matches</source>
        <translation>Keine Treffer</translation>
    </message>
</context>
<context>
    <name>Spinner</name>
    <message>
        <source>In progress</source>
        <translation>Vorgang läuft</translation>
    </message>
</context>
<context>
    <name>SuggestedShortcut</name>
    <message>
        <source>Suggested</source>
        <translation>Vorschlag</translation>
    </message>
</context>
<context>
    <name>UserError</name>
    <message>
        <source>The listener&apos;s port is not valid.</source>
        <translation>Der Port des Dienstes ist ungültig.</translation>
    </message>
    <message>
        <source>The listener is already running.</source>
        <translation>Der Dienst läuft bereits.</translation>
    </message>
    <message>
        <source>A deck can have at most %1 tiles.</source>
        <translation>Ein Deck kann höchstens %1 Tasten haben.</translation>
    </message>
    <message>
        <source>%1 is already on the deck.</source>
        <translation>%1 ist bereits im Deck.</translation>
    </message>
    <message>
        <source>That Shortcut is already on the deck.</source>
        <translation>Dieser Kurzbefehl ist bereits im Deck.</translation>
    </message>
    <message>
        <source>Unknown deck category: %1.</source>
        <translation>Unbekannte Deck-Kategorie: %1.</translation>
    </message>
    <message>
        <source>Could not save the deck.</source>
        <translation>Das Deck konnte nicht gespeichert werden.</translation>
    </message>
    <message>
        <source>Could not read the saved deck.</source>
        <translation>Das gespeicherte Deck konnte nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The shortcuts CLI is not available on this Mac.</source>
        <translation>Das Befehlszeilenprogramm „shortcuts“ ist auf diesem Computer nicht verfügbar.</translation>
    </message>
    <message>
        <source>Could not parse the Shortcuts list.</source>
        <translation>Die Liste der Kurzbefehle konnte nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Could not list Shortcuts (exit %1).</source>
        <translation>Die Kurzbefehle konnten nicht aufgelistet werden (Exit-Code %1).</translation>
    </message>
    <message>
        <source>Could not list Shortcuts: %1</source>
        <translation>Die Kurzbefehle konnten nicht aufgelistet werden: %1</translation>
    </message>
    <message>
        <source>%1 could not be started: %2</source>
        <translation>%1 konnte nicht gestartet werden: %2</translation>
    </message>
    <message>
        <source>%1 could not be started: the session bus does not answer</source>
        <translation>%1 konnte nicht gestartet werden: Der Sitzungsbus antwortet nicht</translation>
    </message>
    <message>
        <source>%1 could not be started: the program &quot;%2&quot; is not installed</source>
        <translation>%1 konnte nicht gestartet werden: Das Programm „%2“ ist nicht installiert</translation>
    </message>
    <message>
        <source>%1 could not be started: its desktop entry cannot be used</source>
        <translation>%1 konnte nicht gestartet werden: Sein Desktop-Eintrag ist nicht verwendbar</translation>
    </message>
    <message>
        <source>%1 could not be started: its action &quot;%2&quot; names no program that is installed</source>
        <translation>%1 konnte nicht gestartet werden: Seine Aktion „%2“ nennt kein installiertes Programm</translation>
    </message>
    <message>
        <source>The application is no longer installed</source>
        <translation>Die App ist nicht mehr installiert</translation>
    </message>
    <message>
        <source>There is no application that opens folders</source>
        <translation>Es gibt keine App, die Ordner öffnet</translation>
    </message>
    <message>
        <source>Could not start %1: %2</source>
        <translation>%1 konnte nicht gestartet werden: %2</translation>
    </message>
    <message>
        <source>Failed to activate application</source>
        <translation>Die App konnte nicht in den Vordergrund geholt werden</translation>
    </message>
    <message>
        <source>Failed to launch application</source>
        <translation>Die App konnte nicht gestartet werden</translation>
    </message>
    <message>
        <source>No application found for bundle identifier</source>
        <translation>Die App ist nicht installiert</translation>
    </message>
    <message>
        <source>No audio output device found.</source>
        <translation>Kein Audioausgabegerät gefunden.</translation>
    </message>
    <message>
        <source>Shortcut missing — replace it in Edit Deck.</source>
        <translation>Der Kurzbefehl fehlt – ersetzen Sie ihn unter „Deck bearbeiten“.</translation>
    </message>
    <message>
        <source>Needs permission or input on your Mac.</source>
        <translation>Braucht am Computer eine Erlaubnis oder Eingabe.</translation>
    </message>
    <message>
        <source>Still waiting on your Mac — check for a dialog.</source>
        <translation>Wartet noch am Computer – gibt es dort einen Dialog?</translation>
    </message>
    <message>
        <source>Could not run Shortcut on Mac.</source>
        <translation>Der Kurzbefehl konnte auf dem Computer nicht ausgeführt werden.</translation>
    </message>
</context>
<context>
    <name>glintboard::AgentViewModel</name>
    <message>
        <source>Pairing locked — too many failed attempts</source>
        <translation>Kopplung gesperrt – zu viele Fehlversuche</translation>
    </message>
    <message>
        <source>Waiting for iPhone to scan QR</source>
        <translation>Warten, bis das iPhone den QR-Code scannt</translation>
    </message>
    <message>
        <source>Listener is already running.</source>
        <translation>Der Dienst läuft bereits.</translation>
    </message>
</context>
<context>
    <name>glintboard::DeckEditorModel</name>
    <message>
        <source>Shortcut icons need Automation access: System Settings → Privacy &amp; Security → Automation → Glintboard Agent → Shortcuts Events.</source>
        <translation>Für Kurzbefehl-Symbole ist der Zugriff auf Automation nötig: Systemeinstellungen → Datenschutz &amp; Sicherheit → Automation → Glintboard Agent → Shortcuts Events.</translation>
    </message>
    <message>
        <source>App Library</source>
        <translation>Apps</translation>
    </message>
    <message>
        <source>Search installed apps</source>
        <translation>Installierte Apps durchsuchen</translation>
    </message>
    <message>
        <source>Action Library</source>
        <translation>Aktionen</translation>
    </message>
    <message>
        <source>Search actions</source>
        <translation>Aktionen durchsuchen</translation>
    </message>
    <message>
        <source>Shortcuts Library</source>
        <translation>Kurzbefehle</translation>
    </message>
    <message>
        <source>Search Shortcuts</source>
        <translation>Kurzbefehle durchsuchen</translation>
    </message>
    <message>
        <source>Cursor isn’t installed.</source>
        <translation>Cursor ist nicht installiert.</translation>
    </message>
    <message>
        <source>Wispr Flow isn’t installed.</source>
        <translation>Wispr Flow ist nicht installiert.</translation>
    </message>
    <message>
        <source>Unsaved</source>
        <translation>Nicht gespeichert</translation>
    </message>
    <message>
        <source>Synced</source>
        <translation>Synchronisiert</translation>
    </message>
    <message>
        <source>Only installed applications can be dropped here.</source>
        <translation>Hier können nur installierte Apps abgelegt werden.</translation>
    </message>
    <message>
        <source>Unsaved changes from %1</source>
        <translation>Nicht gespeicherte Änderungen, Stand %1</translation>
    </message>
</context>
<context>
    <name>glintboard::DeckEditorWindowPresenter</name>
    <message>
        <source>Edit Deck</source>
        <translation>Deck bearbeiten</translation>
    </message>
</context>
<context>
    <name>glintboard::DeckSession</name>
    <message>
        <source>Saved on Mac — connect iPhone to update.</source>
        <translation>Auf dem Computer gespeichert – zum Aktualisieren das iPhone verbinden.</translation>
    </message>
    <message>
        <source>The default deck is in place. Undo brings yours back.</source>
        <translation>Das Standard-Deck ist eingesetzt. „Rückgängig“ bringt Ihres zurück.</translation>
    </message>
    <message>
        <source>The reset is undone: your deck is saved. Connect iPhone to update.</source>
        <translation>Das Zurücksetzen ist rückgängig gemacht: Ihr Deck ist gespeichert. Zum Aktualisieren das iPhone verbinden.</translation>
    </message>
    <message>
        <source>The reset is undone: your deck is saved and on the iPhone again.</source>
        <translation>Das Zurücksetzen ist rückgängig gemacht: Ihr Deck ist gespeichert und wieder auf dem iPhone.</translation>
    </message>
</context>
<context>
    <name>glintboard::ShortcutsLibrary</name>
    <message>
        <source>Create “%1” in Shortcuts (open Cursor, then start Wispr Flow). No Ask for Input steps.</source>
        <translation>„%1“ in Kurzbefehle anlegen (Cursor öffnen, dann Wispr Flow starten). Ohne Schritte „Nach Eingabe fragen“.</translation>
    </message>
    <message>
        <source>Voice prompt in Cursor</source>
        <translation>Sprachprompt in Cursor</translation>
    </message>
</context>
<context>
    <name>glintboard::TextMenu</name>
    <message>
        <source>Manual code</source>
        <translation>Code zum Eintippen</translation>
    </message>
</context>
</TS>
