<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>CardFace</name>
    <message>
        <source>In deck</source>
        <translation>Dans le deck</translation>
    </message>
</context>
<context>
    <name>CardsPage</name>
    <message>
        <source>No applications found</source>
        <translation>Aucune app trouvée</translation>
    </message>
    <message>
        <source>No matches</source>
        <translation>Aucun résultat</translation>
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
        <translation>Jeux</translation>
    </message>
    <message>
        <source>Vol −</source>
        <translation>Volume −</translation>
    </message>
    <message>
        <source>Vol +</source>
        <translation>Volume +</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>Muet</translation>
    </message>
</context>
<context>
    <name>DeckTypography</name>
    <message>
        <source>Tap a key — the Mac opens it.</source>
        <translation>Appuyez sur une touche&#xa0;: l’ordinateur l’ouvre.</translation>
    </message>
</context>
<context>
    <name>DraftOffer</name>
    <message>
        <source>The deck has changed since then.</source>
        <translation>Le deck a changé depuis.</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>Abandonner</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Restaurer</translation>
    </message>
</context>
<context>
    <name>EditorHeader</name>
    <message>
        <source>Deck name</source>
        <translation>Nom du deck</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Save to iPhone</source>
        <translation>Enregistrer sur l’iPhone</translation>
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
        <translation>Son raccourci est introuvable</translation>
    </message>
    <message>
        <source>Not installed</source>
        <translation>Non installée</translation>
    </message>
    <message>
        <source>Key %1 of %2</source>
        <translation>Touche %1 sur %2</translation>
    </message>
    <message>
        <source>Launching</source>
        <translation>Lancement</translation>
    </message>
    <message>
        <source>It worked</source>
        <translation>Réussi</translation>
    </message>
</context>
<context>
    <name>FirstShortcutTip</name>
    <message>
        <source>Your first Shortcut key. Save the deck, then tap the key on the iPhone: the Shortcut runs here. The first run may ask for permission.</source>
        <translation>Votre première touche de raccourci. Enregistrez le deck, puis appuyez sur la touche de l’iPhone&#xa0;: le raccourci s’exécute ici. La première exécution peut demander une autorisation.</translation>
    </message>
    <message>
        <source>Got It</source>
        <translation>Compris</translation>
    </message>
</context>
<context>
    <name>GlassDeckKeyView</name>
    <message>
        <source>Missing</source>
        <translation>Introuvable</translation>
    </message>
</context>
<context>
    <name>GlassDeckTileView</name>
    <message>
        <source>Missing</source>
        <translation>Introuvable</translation>
    </message>
    <message>
        <source>Launching</source>
        <translation>Lancement</translation>
    </message>
    <message>
        <source>Running</source>
        <translation>Ouverte</translation>
    </message>
</context>
<context>
    <name>GlintTextField</name>
    <message>
        <source>Clear the search</source>
        <translation>Effacer la recherche</translation>
    </message>
</context>
<context>
    <name>HomeScreenMinusBadge</name>
    <message>
        <source>Remove key</source>
        <translation>Supprimer la touche</translation>
    </message>
</context>
<context>
    <name>LibraryCard</name>
    <message>
        <source>In deck</source>
        <translation>Dans le deck</translation>
    </message>
    <message>
        <source>The deck is full</source>
        <translation>Le deck est plein</translation>
    </message>
    <message>
        <source>Adds this key to the deck</source>
        <translation>Ajoute cette touche au deck</translation>
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
        <translation>Actions</translation>
    </message>
</context>
<context>
    <name>LibraryTabs</name>
    <message>
        <source>Libraries</source>
        <translation>Bibliothèques</translation>
    </message>
</context>
<context>
    <name>ListenerService</name>
    <message>
        <source>Allow this Shortcut on your Mac (System Settings → Privacy &amp; Security → Automation), then try again.</source>
        <translation>Autorisez ce raccourci sur l’ordinateur (Réglages Système → Confidentialité et sécurité → Automatisation), puis réessayez.</translation>
    </message>
    <message>
        <source>Port %1 is already in use. Quit the other Glintboard Agent first.</source>
        <translation>Le port %1 est déjà utilisé. Quittez d’abord l’autre Glintboard Agent.</translation>
    </message>
</context>
<context>
    <name>MenuBarView</name>
    <message>
        <source>iPhone connected</source>
        <translation>iPhone connecté</translation>
    </message>
    <message>
        <source>Ready for iPhone</source>
        <translation>Prêt pour l’iPhone</translation>
    </message>
    <message>
        <source>Waiting for iPhone</source>
        <translation>En attente de l’iPhone</translation>
    </message>
    <message>
        <source>Connection failed</source>
        <translation>Échec de la connexion</translation>
    </message>
    <message>
        <source>Starting…</source>
        <translation>Démarrage…</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Restart Agent</source>
        <translation>Redémarrer l’agent</translation>
    </message>
    <message>
        <source>Edit Deck</source>
        <translation>Modifier le deck</translation>
    </message>
    <message>
        <source>Show Pairing Code…</source>
        <translation>Afficher le code de jumelage…</translation>
    </message>
    <message>
        <source>Hide Pairing Code</source>
        <translation>Masquer le code de jumelage</translation>
    </message>
    <message>
        <source>Unpair iPhone</source>
        <translation>Dissocier l’iPhone</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Quitter</translation>
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
        <translation>Scannez avec l’iPhone</translation>
    </message>
    <message>
        <source>Scan to pair this iPhone again. This replaces the pairing on this Mac.</source>
        <translation>Scannez pour jumeler à nouveau cet iPhone. Cela remplace le jumelage sur cet ordinateur.</translation>
    </message>
    <message>
        <source>Open Glintboard on your iPhone and tap Pair. Point the camera at this code.</source>
        <translation>Ouvrez Glintboard sur l’iPhone et touchez «&#xa0;Pair&#xa0;». Dirigez l’appareil photo vers ce code.</translation>
    </message>
    <message>
        <source>Manual code</source>
        <translation>Code à saisir</translation>
    </message>
</context>
<context>
    <name>PairingQRCodeView</name>
    <message>
        <source>Pairing QR code</source>
        <translation>Code QR de jumelage</translation>
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
            <numerusform>%1 sur %n touche</numerusform>
            <numerusform>%1 sur %n touches</numerusform>
        </translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Annuler la modification</translation>
    </message>
    <message>
        <source>Ctrl+Z</source>
        <translation>Ctrl+Z</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Rétablir</translation>
    </message>
    <message>
        <source>Ctrl+Shift+Z</source>
        <translation>Ctrl+Maj+Z</translation>
    </message>
    <message>
        <source>Reset to default</source>
        <translation>Réinitialiser</translation>
    </message>
    <message>
        <source>The phone preview is live — %1 pushes it over LAN instantly</source>
        <extracomment>%1 is the button &quot;Save to iPhone&quot;</extracomment>
        <translation>L’aperçu est en direct&#xa0;: %1 l’envoie aussitôt par le réseau local</translation>
    </message>
    <message>
        <source>Save to iPhone</source>
        <translation>Enregistrer sur l’iPhone</translation>
    </message>
    <message>
        <source>The iPhone shows the Streaming deck only for now.</source>
        <translation>Pour l’instant, l’iPhone n’affiche que le deck Streaming.</translation>
    </message>
    <message>
        <source>Drag a card onto the iPhone, or click a card to add it. Double-click a key to try it.</source>
        <translation>Faites glisser une carte sur l’iPhone, ou cliquez dessus pour l’ajouter. Double-cliquez sur une touche pour l’essayer.</translation>
    </message>
</context>
<context>
    <name>PhonePreviewView</name>
    <message>
        <source>Keys on the iPhone</source>
        <translation>Touches de l’iPhone</translation>
    </message>
</context>
<context>
    <name>ShortcutsPage</name>
    <message>
        <source>The first run may ask for permission on your Mac.</source>
        <translation>La première exécution peut demander une autorisation sur l’ordinateur.</translation>
    </message>
    <message>
        <source>Open Shortcuts</source>
        <translation>Ouvrir Raccourcis</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>Actualiser</translation>
    </message>
    <message>
        <source>Shortcuts Library</source>
        <translation>Raccourcis</translation>
    </message>
    <message>
        <source>No Shortcuts yet</source>
        <translation>Pas encore de raccourcis</translation>
    </message>
    <message>
        <source>Create one in Shortcuts, then refresh.</source>
        <translation>Créez-en un dans Raccourcis, puis actualisez.</translation>
    </message>
    <message>
        <source>Shortcuts could not be listed</source>
        <translation>Impossible de lister les raccourcis</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Réessayer</translation>
    </message>
    <message>
        <source>No matches</source>
        <translation>Aucun résultat</translation>
    </message>
</context>
<context>
    <name>Spinner</name>
    <message>
        <source>In progress</source>
        <translation>En cours</translation>
    </message>
</context>
<context>
    <name>SuggestedShortcut</name>
    <message>
        <source>Suggested</source>
        <translation>Suggestion</translation>
    </message>
</context>
<context>
    <name>UserError</name>
    <message>
        <source>The listener&apos;s port is not valid.</source>
        <translation>Le port du service n’est pas valide.</translation>
    </message>
    <message>
        <source>The listener is already running.</source>
        <translation>Le service est déjà en marche.</translation>
    </message>
    <message>
        <source>A deck can have at most %1 tiles.</source>
        <translation>Un deck peut avoir au plus %1 touches.</translation>
    </message>
    <message>
        <source>%1 is already on the deck.</source>
        <translation>%1 est déjà dans le deck.</translation>
    </message>
    <message>
        <source>That Shortcut is already on the deck.</source>
        <translation>Ce raccourci est déjà dans le deck.</translation>
    </message>
    <message>
        <source>Unknown deck category: %1.</source>
        <translation>Catégorie de deck inconnue&#xa0;: %1.</translation>
    </message>
    <message>
        <source>Could not save the deck.</source>
        <translation>Impossible d’enregistrer le deck.</translation>
    </message>
    <message>
        <source>Could not read the saved deck.</source>
        <translation>Impossible de lire le deck enregistré.</translation>
    </message>
    <message>
        <source>The shortcuts CLI is not available on this Mac.</source>
        <translation>L’outil en ligne de commande «&#xa0;shortcuts&#xa0;» n’est pas disponible sur cet ordinateur.</translation>
    </message>
    <message>
        <source>Could not parse the Shortcuts list.</source>
        <translation>Impossible d’interpréter la liste des raccourcis.</translation>
    </message>
    <message>
        <source>Could not list Shortcuts (exit %1).</source>
        <translation>Impossible de lister les raccourcis (code de sortie %1).</translation>
    </message>
    <message>
        <source>Could not list Shortcuts: %1</source>
        <translation>Impossible de lister les raccourcis&#xa0;: %1</translation>
    </message>
    <message>
        <source>%1 could not be started: %2</source>
        <translation>Impossible de démarrer %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>%1 could not be started: the session bus does not answer</source>
        <translation>Impossible de démarrer %1&#xa0;: le bus de session ne répond pas</translation>
    </message>
    <message>
        <source>%1 could not be started: the program &quot;%2&quot; is not installed</source>
        <translation>Impossible de démarrer %1&#xa0;: le programme «&#xa0;%2&#xa0;» n’est pas installé</translation>
    </message>
    <message>
        <source>%1 could not be started: its desktop entry cannot be used</source>
        <translation>Impossible de démarrer %1&#xa0;: son fichier «&#xa0;.desktop&#xa0;» est inutilisable</translation>
    </message>
    <message>
        <source>%1 could not be started: its action &quot;%2&quot; names no program that is installed</source>
        <translation>Impossible de démarrer %1&#xa0;: son action «&#xa0;%2&#xa0;» ne désigne aucun programme installé</translation>
    </message>
    <message>
        <source>The application is no longer installed</source>
        <translation>L’app n’est plus installée</translation>
    </message>
    <message>
        <source>There is no application that opens folders</source>
        <translation>Aucune app ne permet d’ouvrir les dossiers</translation>
    </message>
    <message>
        <source>Could not start %1: %2</source>
        <translation>Impossible de démarrer %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>Failed to activate application</source>
        <translation>Impossible de mettre l’application au premier plan</translation>
    </message>
    <message>
        <source>Failed to launch application</source>
        <translation>Impossible de lancer l’application</translation>
    </message>
    <message>
        <source>No application found for bundle identifier</source>
        <translation>L’application n’est pas installée</translation>
    </message>
    <message>
        <source>No audio output device found.</source>
        <translation>Aucun périphérique de sortie audio trouvé.</translation>
    </message>
    <message>
        <source>Shortcut missing — replace it in Edit Deck.</source>
        <translation>Raccourci introuvable — remplacez-le dans «&#xa0;Modifier le deck&#xa0;».</translation>
    </message>
    <message>
        <source>Needs permission or input on your Mac.</source>
        <translation>Demande une autorisation ou une saisie sur l’ordinateur.</translation>
    </message>
    <message>
        <source>Still waiting on your Mac — check for a dialog.</source>
        <translation>En attente sur l’ordinateur — vérifiez s’il y a une boîte de dialogue.</translation>
    </message>
    <message>
        <source>Could not run Shortcut on Mac.</source>
        <translation>Impossible d’exécuter le raccourci sur l’ordinateur.</translation>
    </message>
</context>
<context>
    <name>glintboard::AgentViewModel</name>
    <message>
        <source>Pairing locked — too many failed attempts</source>
        <translation>Jumelage verrouillé — trop d’essais infructueux</translation>
    </message>
    <message>
        <source>Waiting for iPhone to scan QR</source>
        <translation>En attente de la lecture du code QR par l’iPhone</translation>
    </message>
    <message>
        <source>Listener is already running.</source>
        <translation>Le service est déjà en marche.</translation>
    </message>
</context>
<context>
    <name>glintboard::DeckEditorModel</name>
    <message>
        <source>Shortcut icons need Automation access: System Settings → Privacy &amp; Security → Automation → Glintboard Agent → Shortcuts Events.</source>
        <translation>Les icônes des raccourcis nécessitent l’accès à l’automatisation&#xa0;: Réglages Système → Confidentialité et sécurité → Automatisation → Glintboard Agent → Shortcuts Events.</translation>
    </message>
    <message>
        <source>App Library</source>
        <translation>Apps</translation>
    </message>
    <message>
        <source>Search installed apps</source>
        <translation>Rechercher dans les apps installées</translation>
    </message>
    <message>
        <source>Action Library</source>
        <translation>Actions</translation>
    </message>
    <message>
        <source>Search actions</source>
        <translation>Rechercher dans les actions</translation>
    </message>
    <message>
        <source>Shortcuts Library</source>
        <translation>Raccourcis</translation>
    </message>
    <message>
        <source>Search Shortcuts</source>
        <translation>Rechercher dans les raccourcis</translation>
    </message>
    <message>
        <source>Cursor isn’t installed.</source>
        <translation>Cursor n’est pas installé.</translation>
    </message>
    <message>
        <source>Wispr Flow isn’t installed.</source>
        <translation>Wispr Flow n’est pas installé.</translation>
    </message>
    <message>
        <source>Unsaved</source>
        <translation>Non enregistré</translation>
    </message>
    <message>
        <source>Synced</source>
        <translation>Synchronisé</translation>
    </message>
    <message>
        <source>Only installed applications can be dropped here.</source>
        <translation>Seules les apps installées peuvent être déposées ici.</translation>
    </message>
    <message>
        <source>Unsaved changes from %1</source>
        <translation>Modifications non enregistrées (%1)</translation>
    </message>
</context>
<context>
    <name>glintboard::DeckEditorWindowPresenter</name>
    <message>
        <source>Edit Deck</source>
        <translation>Modifier le deck</translation>
    </message>
</context>
<context>
    <name>glintboard::DeckSession</name>
    <message>
        <source>Saved on Mac — connect iPhone to update.</source>
        <translation>Enregistré sur l’ordinateur — connectez l’iPhone pour le mettre à jour.</translation>
    </message>
    <message>
        <source>The default deck is in place. Undo brings yours back.</source>
        <translation>Le deck par défaut est en place. Annulez la modification pour retrouver le vôtre.</translation>
    </message>
    <message>
        <source>The reset is undone: your deck is saved. Connect iPhone to update.</source>
        <translation>La réinitialisation est annulée : votre deck est enregistré. Connectez l’iPhone pour le mettre à jour.</translation>
    </message>
    <message>
        <source>The reset is undone: your deck is saved and on the iPhone again.</source>
        <translation>La réinitialisation est annulée : votre deck est enregistré et de nouveau sur l’iPhone.</translation>
    </message>
</context>
<context>
    <name>glintboard::ShortcutsLibrary</name>
    <message>
        <source>Create “%1” in Shortcuts (open Cursor, then start Wispr Flow). No Ask for Input steps.</source>
        <translation>Créez «&#xa0;%1&#xa0;» dans Raccourcis (ouvrir Cursor, puis démarrer Wispr Flow). Sans étape «&#xa0;Demander une entrée&#xa0;».</translation>
    </message>
    <message>
        <source>Voice prompt in Cursor</source>
        <translation>Prompt vocal dans Cursor</translation>
    </message>
</context>
<context>
    <name>glintboard::TextMenu</name>
    <message>
        <source>Manual code</source>
        <translation>Code à saisir</translation>
    </message>
</context>
</TS>
