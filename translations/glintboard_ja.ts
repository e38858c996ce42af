<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>CardFace</name>
    <message>
        <source>In deck</source>
        <translation>追加済み</translation>
    </message>
</context>
<context>
    <name>CardsPage</name>
    <message>
        <source>No applications found</source>
        <translation>アプリが見つかりません</translation>
    </message>
    <message>
        <source>No matches</source>
        <translation>一致する項目がありません</translation>
    </message>
</context>
<context>
    <name>CategoryMenu</name>
    <message>
        <source>Deck</source>
        <translation>デッキ</translation>
    </message>
</context>
<context>
    <name>Deck</name>
    <message>
        <source>Streaming</source>
        <translation>ストリーミング</translation>
    </message>
    <message>
        <source>Gaming</source>
        <translation>ゲーム</translation>
    </message>
    <message>
        <source>Vol −</source>
        <translation>音量 −</translation>
    </message>
    <message>
        <source>Vol +</source>
        <translation>音量 +</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>消音</translation>
    </message>
</context>
<context>
    <name>DeckTypography</name>
    <message>
        <source>Tap a key — the Mac opens it.</source>
        <translation>キーをタップすると、コンピューターで開きます。</translation>
    </message>
</context>
<context>
    <name>DraftOffer</name>
    <message>
        <source>The deck has changed since then.</source>
        <translation>その後、デッキは変更されています。</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>破棄</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>復元</translation>
    </message>
</context>
<context>
    <name>EditorHeader</name>
    <message>
        <source>Deck name</source>
        <translation>デッキ名</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Save to iPhone</source>
        <translation>iPhoneに保存</translation>
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
        <translation>ショートカットが見つかりません</translation>
    </message>
    <message>
        <source>Not installed</source>
        <translation>インストールされていません</translation>
    </message>
    <message>
        <source>Key %1 of %2</source>
        <translation>%2個中%1番目のキー</translation>
    </message>
    <message>
        <source>Launching</source>
        <translation>起動中</translation>
    </message>
    <message>
        <source>It worked</source>
        <translation>成功しました</translation>
    </message>
</context>
<context>
    <name>FirstShortcutTip</name>
    <message>
        <source>Your first Shortcut key. Save the deck, then tap the key on the iPhone: the Shortcut runs here. The first run may ask for permission.</source>
        <translation>はじめてのショートカットキーです。デッキを保存してからiPhoneでキーをタップすると、ショートカットがここで実行されます。初回は許可を求められることがあります。</translation>
    </message>
    <message>
        <source>Got It</source>
        <translation>わかりました</translation>
    </message>
</context>
<context>
    <name>GlassDeckKeyView</name>
    <message>
        <source>Missing</source>
        <translation>見つかりません</translation>
    </message>
</context>
<context>
    <name>GlassDeckTileView</name>
    <message>
        <source>Missing</source>
        <translation>見つかりません</translation>
    </message>
    <message>
        <source>Launching</source>
        <translation>起動中</translation>
    </message>
    <message>
        <source>Running</source>
        <translation>実行中</translation>
    </message>
</context>
<context>
    <name>GlintTextField</name>
    <message>
        <source>Clear the search</source>
        <translation>検索をクリア</translation>
    </message>
</context>
<context>
    <name>HomeScreenMinusBadge</name>
    <message>
        <source>Remove key</source>
        <translation>キーを削除</translation>
    </message>
</context>
<context>
    <name>LibraryCard</name>
    <message>
        <source>In deck</source>
        <translation>追加済み</translation>
    </message>
    <message>
        <source>The deck is full</source>
        <translation>デッキはいっぱいです</translation>
    </message>
    <message>
        <source>Adds this key to the deck</source>
        <translation>このキーをデッキに追加します</translation>
    </message>
</context>
<context>
    <name>LibraryPane</name>
    <message>
        <source>App Library</source>
        <translation>アプリ</translation>
    </message>
    <message>
        <source>Action Library</source>
        <translation>アクション</translation>
    </message>
</context>
<context>
    <name>LibraryTabs</name>
    <message>
        <source>Libraries</source>
        <translation>ライブラリ</translation>
    </message>
</context>
<context>
    <name>ListenerService</name>
    <message>
        <source>Allow this Shortcut on your Mac (System Settings → Privacy &amp; Security → Automation), then try again.</source>
        <translation>コンピューターでこのショートカットを許可してから（システム設定 → プライバシーとセキュリティ → オートメーション）、もう一度お試しください。</translation>
    </message>
    <message>
        <source>Port %1 is already in use. Quit the other Glintboard Agent first.</source>
        <translation>ポート%1はすでに使用されています。先にもう一方のGlintboard Agentを終了してください。</translation>
    </message>
</context>
<context>
    <name>MenuBarView</name>
    <message>
        <source>iPhone connected</source>
        <translation>iPhoneと接続中</translation>
    </message>
    <message>
        <source>Ready for iPhone</source>
        <translation>iPhoneの接続準備完了</translation>
    </message>
    <message>
        <source>Waiting for iPhone</source>
        <translation>iPhoneを待機中</translation>
    </message>
    <message>
        <source>Connection failed</source>
        <translation>接続できませんでした</translation>
    </message>
    <message>
        <source>Starting…</source>
        <translation>起動中…</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>Restart Agent</source>
        <translation>エージェントを再起動</translation>
    </message>
    <message>
        <source>Edit Deck</source>
        <translation>デッキを編集</translation>
    </message>
    <message>
        <source>Show Pairing Code…</source>
        <translation>ペアリングコードを表示…</translation>
    </message>
    <message>
        <source>Hide Pairing Code</source>
        <translation>ペアリングコードを隠す</translation>
    </message>
    <message>
        <source>Unpair iPhone</source>
        <translation>iPhoneのペアリングを解除</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>終了</translation>
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
        <translation>iPhoneで読み取ってください</translation>
    </message>
    <message>
        <source>Scan to pair this iPhone again. This replaces the pairing on this Mac.</source>
        <translation>読み取ると、このiPhoneをもう一度ペアリングします。このコンピューターの現在のペアリングは置き換えられます。</translation>
    </message>
    <message>
        <source>Open Glintboard on your iPhone and tap Pair. Point the camera at this code.</source>
        <translation>iPhoneでGlintboardを開いて「Pair」をタップし、カメラをこのコードに向けてください。</translation>
    </message>
    <message>
        <source>Manual code</source>
        <translation>手動入力コード</translation>
    </message>
</context>
<context>
    <name>PairingQRCodeView</name>
    <message>
        <source>Pairing QR code</source>
        <translation>ペアリング用QRコード</translation>
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
            <numerusform>%n個中%1個のキー</numerusform>
        </translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>元に戻す</translation>
    </message>
    <message>
        <source>Ctrl+Z</source>
        <translation>Ctrl+Z</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>やり直す</translation>
    </message>
    <message>
        <source>Ctrl+Shift+Z</source>
        <translation>Ctrl+Shift+Z</translation>
    </message>
    <message>
        <source>Reset to default</source>
        <translation>初期設定に戻す</translation>
    </message>
    <message>
        <source>The phone preview is live — %1 pushes it over LAN instantly</source>
        <extracomment>%1 is the button &quot;Save to iPhone&quot;</extracomment>
        <translation>プレビューは常に最新です — %1を押すとLAN経由ですぐに送信されます</translation>
    </message>
    <message>
        <source>Save to iPhone</source>
        <translation>iPhoneに保存</translation>
    </message>
    <message>
        <source>The iPhone shows the Streaming deck only for now.</source>
        <translation>現在、iPhoneに表示されるのは「ストリーミング」デッキだけです。</translation>
    </message>
    <message>
        <source>Drag a card onto the iPhone, or click a card to add it. Double-click a key to try it.</source>
        <translation>カードをiPhoneにドラッグするか、クリックすると追加できます。キーをダブルクリックすると試せます。</translation>
    </message>
</context>
<context>
    <name>PhonePreviewView</name>
    <message>
        <source>Keys on the iPhone</source>
        <translation>iPhoneのキー</translation>
    </message>
</context>
<context>
    <name>ShortcutsPage</name>
    <message>
        <source>The first run may ask for permission on your Mac.</source>
        <translation>初回の実行時に、コンピューターで許可を求められることがあります。</translation>
    </message>
    <message>
        <source>Open Shortcuts</source>
        <translation>ショートカットを開く</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>更新</translation>
    </message>
    <message>
        <source>Shortcuts Library</source>
        <translation>ショートカット</translation>
    </message>
    <message>
        <source>No Shortcuts yet</source>
        <translation>ショートカットはまだありません</translation>
    </message>
    <message>
        <source>Create one in Shortcuts, then refresh.</source>
        <translation>ショートカットで作成してから、更新してください。</translation>
    </message>
    <message>
        <source>Shortcuts could not be listed</source>
        <translation>ショートカットの一覧を取得できませんでした</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>再試行</translation>
    </message>
    <message>
        <source>No matches</source>
        <translation>一致する項目がありません</translation>
    </message>
</context>
<context>
    <name>Spinner</name>
    <message>
        <source>In progress</source>
        <translation>処理中</translation>
    </message>
</context>
<context>
    <name>SuggestedShortcut</name>
    <message>
        <source>Suggested</source>
        <translation>おすすめ</translation>
    </message>
</context>
<context>
    <name>UserError</name>
    <message>
        <source>The listener&apos;s port is not valid.</source>
        <translation>サービスのポートが正しくありません。</translation>
    </message>
    <message>
        <source>The listener is already running.</source>
        <translation>サービスはすでに動作しています。</translation>
    </message>
    <message>
        <source>A deck can have at most %1 tiles.</source>
        <translation>デッキに置けるキーは最大%1個です。</translation>
    </message>
    <message>
        <source>%1 is already on the deck.</source>
        <translation>%1はすでにデッキにあります。</translation>
    </message>
    <message>
        <source>That Shortcut is already on the deck.</source>
        <translation>そのショートカットはすでにデッキにあります。</translation>
    </message>
    <message>
        <source>Unknown deck category: %1.</source>
        <translation>不明なデッキの種類：%1</translation>
    </message>
    <message>
        <source>Could not save the deck.</source>
        <translation>デッキを保存できませんでした。</translation>
    </message>
    <message>
        <source>Could not read the saved deck.</source>
        <translation>保存されたデッキを読み込めませんでした。</translation>
    </message>
    <message>
        <source>The shortcuts CLI is not available on this Mac.</source>
        <translation>このコンピューターでは「shortcuts」コマンドを利用できません。</translation>
    </message>
    <message>
        <source>Could not parse the Shortcuts list.</source>
        <translation>ショートカットの一覧を解釈できませんでした。</translation>
    </message>
    <message>
        <source>Could not list Shortcuts (exit %1).</source>
        <translation>ショートカットの一覧を取得できませんでした（終了コード%1）。</translation>
    </message>
    <message>
        <source>Could not list Shortcuts: %1</source>
        <translation>ショートカットの一覧を取得できませんでした：%1</translation>
    </message>
    <message>
        <source>%1 could not be started: %2</source>
        <translation>%1を起動できませんでした：%2</translation>
    </message>
    <message>
        <source>%1 could not be started: the session bus does not answer</source>
        <translation>%1を起動できませんでした：セッションバスが応答しません</translation>
    </message>
    <message>
        <source>%1 could not be started: the program &quot;%2&quot; is not installed</source>
        <translation>%1を起動できませんでした：プログラム「%2」がインストールされていません</translation>
    </message>
    <message>
        <source>%1 could not be started: its desktop entry cannot be used</source>
        <translation>%1を起動できませんでした：デスクトップエントリーを使用できません</translation>
    </message>
    <message>
        <source>%1 could not be started: its action &quot;%2&quot; names no program that is installed</source>
        <translation>%1を起動できませんでした：アクション「%2」に対応するプログラムがインストールされていません</translation>
    </message>
    <message>
        <source>The application is no longer installed</source>
        <translation>アプリはもうインストールされていません</translation>
    </message>
    <message>
        <source>There is no application that opens folders</source>
        <translation>フォルダーを開くアプリがありません</translation>
    </message>
    <message>
        <source>Could not start %1: %2</source>
        <translation>%1を起動できませんでした：%2</translation>
    </message>
    <message>
        <source>Failed to activate application</source>
        <translation>アプリケーションを前面に表示できませんでした</translation>
    </message>
    <message>
        <source>Failed to launch application</source>
        <translation>アプリケーションを起動できませんでした</translation>
    </message>
    <message>
        <source>No application found for bundle identifier</source>
        <translation>アプリケーションがインストールされていません</translation>
    </message>
    <message>
        <source>No audio output device found.</source>
        <translation>オーディオ出力デバイスが見つかりません。</translation>
    </message>
    <message>
        <source>Shortcut missing — replace it in Edit Deck.</source>
        <translation>ショートカットが見つかりません — 「デッキを編集」で置き換えてください。</translation>
    </message>
    <message>
        <source>Needs permission or input on your Mac.</source>
        <translation>コンピューターでの許可または入力が必要です。</translation>
    </message>
    <message>
        <source>Still waiting on your Mac — check for a dialog.</source>
        <translation>コンピューターで待機中です — ダイアログを確認してください。</translation>
    </message>
    <message>
        <source>Could not run Shortcut on Mac.</source>
        <translation>コンピューターでショートカットを実行できませんでした。</translation>
    </message>
</context>
<context>
    <name>glintboard::AgentViewModel</name>
    <message>
        <source>Pairing locked — too many failed attempts</source>
        <translation>ペアリングはロックされています — 失敗が多すぎます</translation>
    </message>
    <message>
        <source>Waiting for iPhone to scan QR</source>
        <translation>iPhoneでのQRコードの読み取りを待っています</translation>
    </message>
    <message>
        <source>Listener is already running.</source>
        <translation>サービスはすでに動作しています。</translation>
    </message>
</context>
<context>
    <name>glintboard::DeckEditorModel</name>
    <message>
        <source>Shortcut icons need Automation access: System Settings → Privacy &amp; Security → Automation → Glintboard Agent → Shortcuts Events.</source>
        <translation>ショートカットのアイコンには、オートメーションへのアクセス許可が必要です：システム設定 → プライバシーとセキュリティ → オートメーション → Glintboard Agent → Shortcuts Events</translation>
    </message>
    <message>
        <source>App Library</source>
        <translation>アプリ</translation>
    </message>
    <message>
        <source>Search installed apps</source>
        <translation>インストール済みのアプリを検索</translation>
    </message>
    <message>
        <source>Action Library</source>
        <translation>アクション</translation>
    </message>
    <message>
        <source>Search actions</source>
        <translation>アクションを検索</translation>
    </message>
    <message>
        <source>Shortcuts Library</source>
        <translation>ショートカット</translation>
    </message>
    <message>
        <source>Search Shortcuts</source>
        <translation>ショートカットを検索</translation>
    </message>
    <message>
        <source>Cursor isn’t installed.</source>
        <translation>Cursorはインストールされていません。</translation>
    </message>
    <message>
        <source>Wispr Flow isn’t installed.</source>
        <translation>Wispr Flowはインストールされていません。</translation>
    </message>
    <message>
        <source>Unsaved</source>
        <translation>未保存</translation>
    </message>
    <message>
        <source>Synced</source>
        <translation>同期済み</translation>
    </message>
    <message>
        <source>Only installed applications can be dropped here.</source>
        <translation>ここにドロップできるのはインストール済みのアプリだけです。</translation>
    </message>
    <message>
        <source>Unsaved changes from %1</source>
        <translation>保存していない変更（%1）</translation>
    </message>
</context>
<context>
    <name>glintboard::DeckEditorWindowPresenter</name>
    <message>
        <source>Edit Deck</source>
        <translation>デッキを編集</translation>
    </message>
</context>
<context>
    <name>glintboard::DeckSession</name>
    <message>
        <source>Saved on Mac — connect iPhone to update.</source>
        <translation>コンピューターに保存しました — iPhoneを接続すると更新されます。</translation>
    </message>
    <message>
        <source>The default deck is in place. Undo brings yours back.</source>
        <translation>初期設定のデッキになりました。元に戻すと自分のデッキが戻ります。</translation>
    </message>
    <message>
        <source>The reset is undone: your deck is saved. Connect iPhone to update.</source>
        <translation>リセットを取り消し、自分のデッキを保存しました。iPhoneを接続すると更新されます。</translation>
    </message>
    <message>
        <source>The reset is undone: your deck is saved and on the iPhone again.</source>
        <translation>リセットを取り消し、自分のデッキを保存しました。iPhoneにも戻りました。</translation>
    </message>
</context>
<context>
    <name>glintboard::ShortcutsLibrary</name>
    <message>
        <source>Create “%1” in Shortcuts (open Cursor, then start Wispr Flow). No Ask for Input steps.</source>
        <translation>ショートカットで「%1」を作成してください（Cursorを開き、次にWispr Flowを起動）。「入力を要求」の手順は使えません。</translation>
    </message>
    <message>
        <source>Voice prompt in Cursor</source>
        <translation>Cursorで音声プロンプト</translation>
    </message>
</context>
<context>
    <name>glintboard::TextMenu</name>
    <message>
        <source>Manual code</source>
        <translation>手動入力コード</translation>
    </message>
</context>
</TS>
