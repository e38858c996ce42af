<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>CardFace</name>
    <message>
        <source>In deck</source>
        <translation>En el deck</translation>
    </message>
</context>
<context>
    <name>CardsPage</name>
    <message>
        <source>No applications found</source>
        <translation>No se encontraron apps</translation>
    </message>
    <message>
        <source>No matches</source>
        <translation>Sin resultados</translation>
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
        <translation>Juegos</translation>
    </message>
    <message>
        <source>Vol −</source>
        <translation>Volumen −</translation>
    </message>
    <message>
        <source>Vol +</source>
        <translation>Volumen +</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>Silencio</translation>
    </message>
</context>
<context>
    <name>DeckTypography</name>
    <message>
        <source>Tap a key — the Mac opens it.</source>
        <translation>Toca una tecla y el ordenador la abre.</translation>
    </message>
</context>
<context>
    <name>DraftOffer</name>
    <message>
        <source>The deck has changed since then.</source>
        <translation>El deck ha cambiado desde entonces.</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>Descartar</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Restaurar</translation>
    </message>
</context>
<context>
    <name>EditorHeader</name>
    <message>
        <source>Deck name</source>
        <translation>Nombre del deck</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Save to iPhone</source>
        <translation>Guardar en el iPhone</translation>
    </message>
    <message>
        <source>Ctrl+S</source>
        <translation>Ctrl+S</translation>
    </message>
</context>
<context>
    <name>FilledKeyCell</name>
    <message>
        <source>Its Shortcut is missing</source>
        <translation>Falta su atajo</translation>
    </message>
    <message>
        <source>Not installed</source>
        <translation>No instalada</translation>
    </message>
    <message>
        <source>Key %1 of %2</source>
        <translation>Tecla %1 de %2</translation>
    </message>
    <message>
        <source>Launching</source>
        <translation>Abriéndose</translation>
    </message>
    <message>
        <source>It worked</source>
        <translation>Ha funcionado</translation>
    </message>
</context>
<context>
    <name>FirstShortcutTip</name>
    <message>
        <source>Your first Shortcut key. Save the deck, then tap the key on the iPhone: the Shortcut runs here. The first run may ask for permission.</source>
        <translation>Tu primera tecla de atajo. Guarda el deck y toca la tecla en el iPhone: el atajo se ejecuta aquí. La primera vez puede pedir permiso.</translation>
    </message>
    <message>
        <source>Got It</source>
        <translation>Entendido</translation>
    </message>
</context>
<context>
    <name>GlassDeckKeyView</name>
    <message>
        <source>Missing</source>
        <translation>Falta</translation>
    </message>
</context>
<context>
    <name>GlassDeckTileView</name>
    <message>
        <source>Missing</source>
        <translation>Falta</translation>
    </message>
    <message>
        <source>Launching</source>
        <translation>Abriéndose</translation>
    </message>
    <message>
        <source>Running</source>
        <translation>Abierta</translation>
    </message>
</context>
<context>
    <name>GlintTextField</name>
    <message>
        <source>Clear the search</source>
        <translation>Borrar la búsqueda</translation>
    </message>
</context>
<context>
    <name>HomeScreenMinusBadge</name>
    <message>
        <source>Remove key</source>
        <translation>Quitar la tecla</translation>
    </message>
</context>
<context>
    <name>LibraryCard</name>
    <message>
        <source>In deck</source>
        <translation>En el deck</translation>
    </message>
    <message>
        <source>The deck is full</source>
        <translation>El deck está lleno</translation>
    </message>
    <message>
        <source>Adds this key to the deck</source>
        <translation>Añade esta tecla al deck</translation>
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
        <translation>Acciones</translation>
    </message>
</context>
<context>
    <name>LibraryTabs</name>
    <message>
        <source>Libraries</source>
        <translation>Bibliotecas</translation>
    </message>
</context>
<context>
    <name>ListenerService</name>
    <message>
        <source>Allow this Shortcut on your Mac (System Settings → Privacy &amp; Security → Automation), then try again.</source>
        <translation>Permite este atajo en el ordenador (Ajustes del Sistema → Privacidad y seguridad → Automatización) e inténtalo de nuevo.</translation>
    </message>
    <message>
        <source>Port %1 is already in use. Quit the other Glintboard Agent first.</source>
        <translation>El puerto %1 ya está en uso. Cierra primero el otro Glintboard Agent.</translation>
    </message>
</context>
<context>
    <name>MenuBarView</name>
    <message>
        <source>iPhone connected</source>
        <translation>iPhone conectado</translation>
    </message>
    <message>
        <source>Ready for iPhone</source>
        <translation>Listo para el iPhone</translation>
    </message>
    <message>
        <source>Waiting for iPhone</source>
        <translation>Esperando al iPhone</translation>
    </message>
    <message>
        <source>Connection failed</source>
        <translation>Error de conexión</translation>
    </message>
    <message>
        <source>Starting…</source>
        <translation>Iniciando…</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>Restart Agent</source>
        <translation>Reiniciar el agente</translation>
    </message>
    <message>
        <source>Edit Deck</source>
        <translation>Editar el deck</translation>
    </message>
    <message>
        <source>Show Pairing Code…</source>
        <translation>Mostrar código de vinculación…</translation>
    </message>
    <message>
        <source>Hide Pairing Code</source>
        <translation>Ocultar código de vinculación</translation>
    </message>
    <message>
        <source>Unpair iPhone</source>
        <translation>Desvincular el iPhone</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Salir</translation>
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
        <translation>Ctrl+Q</translation>
    </message>
</context>
<context>
    <name>PairingPanel</name>
    <message>
        <source>Scan with iPhone</source>
        <translation>Escanea con el iPhone</translation>
    </message>
    <message>
        <source>Scan to pair this iPhone again. This replaces the pairing on this Mac.</source>
        <translation>Escanea para volver a vincular este iPhone. Esto sustituye la vinculación de este ordenador.</translation>
    </message>
    <message>
        <source>Open Glintboard on your iPhone and tap Pair. Point the camera at this code.</source>
        <translation>Abre Glintboard en el iPhone y toca «Pair». Apunta con la cámara a este código.</translation>
    </message>
    <message>
        <source>Manual code</source>
        <translation>Código manual</translation>
    </message>
</context>
<context>
    <name>PairingQRCodeView</name>
    <message>
        <source>Pairing QR code</source>
        <translation>Código QR de vinculación</translation>
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
            <numerusform>%1 de %n tecla</numerusform>
            <numerusform>%1 de %n teclas</numerusform>
        </translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Deshacer</translation>
    </message>
    <message>
        <source>Ctrl+Z</source>
        <translation>Ctrl+Z</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Rehacer</translation>
    </message>
    <message>
        <source>Ctrl+Shift+Z</source>
        <translation>Ctrl+Mayús+Z</translation>
    </message>
    <message>
        <source>Reset to default</source>
        <translation>Restablecer</translation>
    </message>
    <message>
        <source>The phone preview is live — %1 pushes it over LAN instantly</source>
        <extracomment>%1 is the button &quot;Save to iPhone&quot;</extracomment>
        <translation>La vista previa es en directo: %1 la envía al momento por la red local</translation>
    </message>
    <message>
        <source>Save to iPhone</source>
        <translation>Guardar en el iPhone</translation>
    </message>
    <message>
        <source>The iPhone shows the Streaming deck only for now.</source>
        <translation>Por ahora, el iPhone solo muestra el deck Streaming.</translation>
    </message>
    <message>
        <source>Drag a card onto the iPhone, or click a card to add it. Double-click a key to try it.</source>
        <translation>Arrastra una tarjeta al iPhone o haz clic en ella para añadirla. Haz doble clic en una tecla para probarla.</translation>
    </message>
</context>
<context>
    <name>PhonePreviewView</name>
    <message>
        <source>Keys on the iPhone</source>
        <translation>Teclas del iPhone</translation>
    </message>
</context>
<context>
    <name>ShortcutsPage</name>
    <message>
        <source>The first run may ask for permission on your Mac.</source>
        <translation>La primera vez, el ordenador puede pedir permiso.</translation>
    </message>
    <message>
        <source>Open Shortcuts</source>
        <translation>Abrir Atajos</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>Actualizar</translation>
    </message>
    <message>
        <source>Shortcuts Library</source>
        <translation>Atajos</translation>
    </message>
    <message>
        <source>No Shortcuts yet</source>
        <translation>Aún no hay atajos</translation>
    </message>
    <message>
        <source>Create one in Shortcuts, then refresh.</source>
        <translation>Crea uno en Atajos y actualiza.</translation>
    </message>
    <message>
        <source>Shortcuts could not be listed</source>
        <translation>No se pudieron listar los atajos</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Reintentar</translation>
    </message>
    <message>
        <source>No matches</source>
        <translation>Sin resultados</translation>
    </message>
</context>
<context>
    <name>Spinner</name>
    <message>
        <source>In progress</source>
        <translation>En curso</translation>
    </message>
</context>
<context>
    <name>SuggestedShortcut</name>
    <message>
        <source>Suggested</source>
        <translation>Sugerencia</translation>
    </message>
</context>
<context>
    <name>UserError</name>
    <message>
        <source>The listener&apos;s port is not valid.</source>
        <translation>El puerto del servicio no es válido.</translation>
    </message>
    <message>
        <source>The listener is already running.</source>
        <translation>El servicio ya está en marcha.</translation>
    </message>
    <message>
        <source>A deck can have at most %1 tiles.</source>
        <translation>Un deck puede tener como máximo %1 teclas.</translation>
    </message>
    <message>
        <source>%1 is already on the deck.</source>
        <translation>%1 ya está en el deck.</translation>
    </message>
    <message>
        <source>That Shortcut is already on the deck.</source>
        <translation>Ese atajo ya está en el deck.</translation>
    </message>
    <message>
        <source>Unknown deck category: %1.</source>
        <translation>Categoría de deck desconocida: %1.</translation>
    </message>
    <message>
        <source>Could not save the deck.</source>
        <translation>No se pudo guardar el deck.</translation>
    </message>
    <message>
        <source>Could not read the saved deck.</source>
        <translation>No se pudo leer el deck guardado.</translation>
    </message>
    <message>
        <source>The shortcuts CLI is not available on this Mac.</source>
        <translation>La herramienta de línea de órdenes «shortcuts» no está disponible en este ordenador.</translation>
    </message>
    <message>
        <source>Could not parse the Shortcuts list.</source>
        <translation>No se pudo interpretar la lista de atajos.</translation>
    </message>
    <message>
        <source>Could not list Shortcuts (exit %1).</source>
        <translation>No se pudieron listar los atajos (código de salida %1).</translation>
    </message>
    <message>
        <source>Could not list Shortcuts: %1</source>
        <translation>No se pudieron listar los atajos: %1</translation>
    </message>
    <message>
        <source>%1 could not be started: %2</source>
        <translation>No se pudo iniciar %1: %2</translation>
    </message>
    <message>
        <source>%1 could not be started: the session bus does not answer</source>
        <translation>No se pudo iniciar %1: el bus de sesión no responde</translation>
    </message>
    <message>
        <source>%1 could not be started: the program &quot;%2&quot; is not installed</source>
        <translation>No se pudo iniciar %1: el programa «%2» no está instalado</translation>
    </message>
    <message>
        <source>%1 could not be started: its desktop entry cannot be used</source>
        <translation>No se pudo iniciar %1: su entrada de escritorio no se puede usar</translation>
    </message>
    <message>
        <source>%1 could not be started: its action &quot;%2&quot; names no program that is installed</source>
        <translation>No se pudo iniciar %1: su acción «%2» no indica ningún programa instalado</translation>
    </message>
    <message>
        <source>The application is no longer installed</source>
        <translation>La app ya no está instalada</translation>
    </message>
    <message>
        <source>There is no application that opens folders</source>
        <translation>No hay ninguna app que abra carpetas</translation>
    </message>
    <message>
        <source>Could not start %1: %2</source>
        <translation>No se pudo iniciar %1: %2</translation>
    </message>
    <message>
        <source>Failed to activate application</source>
        <translation>No se pudo traer la aplicación al frente</translation>
    </message>
    <message>
        <source>Failed to launch application</source>
        <translation>No se pudo abrir la aplicación</translation>
    </message>
    <message>
        <source>No application found for bundle identifier</source>
        <translation>La aplicación no está instalada</translation>
    </message>
    <message>
        <source>No audio output device found.</source>
        <translation>No se encontró ningún dispositivo de salida de audio.</translation>
    </message>
    <message>
        <source>Shortcut missing — replace it in Edit Deck.</source>
        <translation>Falta el atajo: sustitúyelo en «Editar el deck».</translation>
    </message>
    <message>
        <source>Needs permission or input on your Mac.</source>
        <translation>Necesita permiso o una respuesta en el ordenador.</translation>
    </message>
    <message>
        <source>Still waiting on your Mac — check for a dialog.</source>
        <translation>Sigue esperando en el ordenador: comprueba si hay un diálogo.</translation>
    </message>
    <message>
        <source>Could not run Shortcut on Mac.</source>
        <translation>No se pudo ejecutar el atajo en el ordenador.</translation>
    </message>
</context>
<context>
    <name>glintboard::AgentViewModel</name>
    <message>
        <source>Pairing locked — too many failed attempts</source>
        <translation>Vinculación bloqueada: demasiados intentos fallidos</translation>
    </message>
    <message>
        <source>Waiting for iPhone to scan QR</source>
        <translation>Esperando a que el iPhone escanee el código QR</translation>
    </message>
    <message>
        <source>Listener is already running.</source>
        <translation>El servicio ya está en marcha.</translation>
    </message>
</context>
<context>
    <name>glintboard::DeckEditorModel</name>
    <message>
        <source>Shortcut icons need Automation access: System Settings → Privacy &amp; Security → Automation → Glintboard Agent → Shortcuts Events.</source>
        <translation>Los iconos de los atajos necesitan acceso a Automatización: Ajustes del Sistema → Privacidad y seguridad → Automatización → Glintboard Agent → Shortcuts Events.</translation>
    </message>
    <message>
        <source>App Library</source>
        <translation>Apps</translation>
    </message>
    <message>
        <source>Search installed apps</source>
        <translation>Buscar en las apps instaladas</translation>
    </message>
    <message>
        <source>Action Library</source>
        <translation>Acciones</translation>
    </message>
    <message>
        <source>Search actions</source>
        <translation>Buscar en las acciones</translation>
    </message>
    <message>
        <source>Shortcuts Library</source>
        <translation>Atajos</translation>
    </message>
    <message>
        <source>Search Shortcuts</source>
        <translation>Buscar en los atajos</translation>
    </message>
    <message>
        <source>Cursor isn’t installed.</source>
        <translation>Cursor no está instalado.</translation>
    </message>
    <message>
        <source>Wispr Flow isn’t installed.</source>
        <translation>Wispr Flow no está instalado.</translation>
    </message>
    <message>
        <source>Unsaved</source>
        <translation>Sin guardar</translation>
    </message>
    <message>
        <source>Synced</source>
        <translation>Sincronizado</translation>
    </message>
    <message>
        <source>Only installed applications can be dropped here.</source>
        <translation>Aquí solo se pueden soltar apps instaladas.</translation>
    </message>
    <message>
        <source>Unsaved changes from %1</source>
        <translation>Cambios sin guardar (%1)</translation>
    </message>
</context>
<context>
    <name>glintboard::DeckEditorWindowPresenter</name>
    <message>
        <source>Edit Deck</source>
        <translation>Editar el deck</translation>
    </message>
</context>
<context>
    <name>glintboard::DeckSession</name>
    <message>
        <source>Saved on Mac — connect iPhone to update.</source>
        <translation>Guardado en el ordenador: conecta el iPhone para actualizarlo.</translation>
    </message>
    <message>
        <source>The default deck is in place. Undo brings yours back.</source>
        <translation>El deck predeterminado está puesto. «Deshacer» recupera el tuyo.</translation>
    </message>
    <message>
        <source>The reset is undone: your deck is saved. Connect iPhone to update.</source>
        <translation>El restablecimiento se ha deshecho: tu deck está guardado. Conecta el iPhone para actualizarlo.</translation>
    </message>
    <message>
        <source>The reset is undone: your deck is saved and on the iPhone again.</source>
        <translation>El restablecimiento se ha deshecho: tu deck está guardado y de nuevo en el iPhone.</translation>
    </message>
</context>
<context>
    <name>glintboard::ShortcutsLibrary</name>
    <message>
        <source>Create “%1” in Shortcuts (open Cursor, then start Wispr Flow). No Ask for Input steps.</source>
        <translation>Crea «%1» en Atajos (abrir Cursor y luego iniciar Wispr Flow). Sin pasos «Solicitar entrada».</translation>
    </message>
    <message>
        <source>Voice prompt in Cursor</source>
        <translation>Prompt de voz en Cursor</translation>
    </message>
</context>
<context>
    <name>glintboard::TextMenu</name>
    <message>
        <source>Manual code</source>
        <translation>Código manual</translation>
    </message>
</context>
</TS>
