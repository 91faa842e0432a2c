<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP" sourcelanguage="en">
<context>
    <name>KMBasicShaderNode</name>
    <message>
        <source>Shader</source>
        <translation>シェーダー</translation>
    </message>
</context>
<context>
    <name>KMBoolNodeContainer</name>
    <message>
        <source>Bool</source>
        <translation>真偽値</translation>
    </message>
</context>
<context>
    <name>KMDisplayColors</name>
    <message>
        <source>Active BackGround</source>
        <translation>アクティブな背景</translation>
    </message>
    <message>
        <source>BackGround</source>
        <translation>背景</translation>
    </message>
    <message>
        <source>Grid Base</source>
        <translation>グリッド</translation>
    </message>
    <message>
        <source>Grid X Axis</source>
        <translation>グリッドのX軸</translation>
    </message>
    <message>
        <source>Grid Y Axis</source>
        <translation>グリッドのY軸</translation>
    </message>
    <message>
        <source>Grid Z Axis</source>
        <translation>グリッドのZ軸</translation>
    </message>
    <message>
        <source>Grid UV</source>
        <translation>UVグリッド</translation>
    </message>
    <message>
        <source>Edge</source>
        <translation>辺</translation>
    </message>
    <message>
        <source>UV Edge</source>
        <translation>UVの辺</translation>
    </message>
    <message>
        <source>Active Edge</source>
        <translation>アクティブな辺</translation>
    </message>
    <message>
        <source>Selected Edge</source>
        <translation>選択した辺</translation>
    </message>
    <message>
        <source>Hot Edge</source>
        <translation>カーソル下の辺</translation>
    </message>
    <message>
        <source>Vertex</source>
        <translation>頂点</translation>
    </message>
    <message>
        <source>Active Vertex</source>
        <translation>アクティブな頂点</translation>
    </message>
    <message>
        <source>Selected Vertex</source>
        <translation>選択した頂点</translation>
    </message>
    <message>
        <source>Hot Vertex</source>
        <translation>カーソル下の頂点</translation>
    </message>
    <message>
        <source>Selected UV Edge</source>
        <translation>選択したUVの辺</translation>
    </message>
    <message>
        <source>Pinned UV Vertex</source>
        <translation>固定したUV頂点</translation>
    </message>
    <message>
        <source>Selected Face</source>
        <translation>選択した面</translation>
    </message>
    <message>
        <source>Hot Face</source>
        <translation>カーソル下の面</translation>
    </message>
    <message>
        <source>Selected FaceLine</source>
        <translation>選択した面の線</translation>
    </message>
    <message>
        <source>Bone</source>
        <translation>ボーン</translation>
    </message>
    <message>
        <source>Selected Bone</source>
        <translation>選択したボーン</translation>
    </message>
    <message>
        <source>Hot Bone</source>
        <translation>カーソル下のボーン</translation>
    </message>
    <message>
        <source>Active Control</source>
        <translation>アクティブなコントロール</translation>
    </message>
    <message>
        <source>Selected Control</source>
        <translation>選択したコントロール</translation>
    </message>
    <message>
        <source>PhysicsNode</source>
        <translation>物理ノード</translation>
    </message>
    <message>
        <source>Selected PhysicsNode</source>
        <translation>選択した物理ノード</translation>
    </message>
    <message>
        <source>Selection Frame</source>
        <translation>選択枠</translation>
    </message>
    <message>
        <source>Active Selection Frame</source>
        <translation>アクティブな選択枠</translation>
    </message>
    <message>
        <source>Flow Selection</source>
        <translation>フロー選択</translation>
    </message>
    <message>
        <source>Normal</source>
        <translation>法線</translation>
    </message>
    <message>
        <source>Rotated Normal</source>
        <translation>回転した法線</translation>
    </message>
    <message>
        <source>Fixed Normal</source>
        <translation>固定した法線</translation>
    </message>
    <message>
        <source>Selected Normal</source>
        <translation>選択した法線</translation>
    </message>
</context>
<context>
    <name>KMEmbeddedTextureNode</name>
    <message>
        <source>EmbeddedTexture</source>
        <translation>埋め込みテクスチャ</translation>
    </message>
</context>
<context>
    <name>KMEmergency</name>
    <message>
        <source>The document could not be saved to %1.</source>
        <translation>ドキュメントを %1 に保存できませんでした。</translation>
    </message>
    <message>
        <source>fatal error occurred.</source>
        <translation>致命的なエラーが発生しました。</translation>
    </message>
</context>
<context>
    <name>KMFileTextureNode</name>
    <message>
        <source>Texture</source>
        <translation>テクスチャ</translation>
    </message>
</context>
<context>
    <name>KMFloatNodeContainer</name>
    <message>
        <source>Float</source>
        <translation>小数</translation>
    </message>
</context>
<context>
    <name>KMFormPage</name>
    <message>
        <source>This setting will take effect after the application restart</source>
        <translation>この設定はアプリケーションの再起動後に有効になります</translation>
    </message>
</context>
<context>
    <name>KMIntNodeContainer</name>
    <message>
        <source>Int</source>
        <translation>整数</translation>
    </message>
</context>
<context>
    <name>KMNullNode</name>
    <message>
        <source>Null</source>
        <translation>ヌル</translation>
    </message>
</context>
<context>
    <name>KMPbrShaderNode</name>
    <message>
        <source>PbrShader</source>
        <translation>PBRシェーダー</translation>
    </message>
</context>
<context>
    <name>KMProcTextureNode</name>
    <message>
        <source>PTexture</source>
        <translation>プロシージャルテクスチャ</translation>
    </message>
</context>
<context>
    <name>KMProject</name>
    <message>
        <source>unnamed Project</source>
        <translation>名称未設定プロジェクト</translation>
    </message>
    <message>
        <source>information</source>
        <translation>情報</translation>
    </message>
    <message>
        <source>Add Node</source>
        <translation>ノードの追加</translation>
    </message>
    <message>
        <source>Delete Node</source>
        <translation>ノードの削除</translation>
    </message>
</context>
<context>
    <name>KMSettingField</name>
    <message>
        <source>Default</source>
        <translation>標準</translation>
    </message>
    <message>
        <source>Backup Folder</source>
        <translation>バックアップ先フォルダー</translation>
    </message>
    <message>
        <source>Choose a folder</source>
        <translation>フォルダーを選択します</translation>
    </message>
</context>
<context>
    <name>KMShortcutPage</name>
    <message>
        <source>Filter by name or keys</source>
        <translation>名前またはキーで絞り込み</translation>
    </message>
    <message>
        <source>Action</source>
        <translation>操作</translation>
    </message>
    <message>
        <source>Shortcut</source>
        <translation>ショートカット</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>クリア</translation>
    </message>
    <message>
        <source>Takes the shortcut away from the selected action</source>
        <translation>選択した操作のショートカットを外します</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>ショートカット</translation>
    </message>
    <message>
        <source>Invalid Keys</source>
        <translation>無効なキー</translation>
    </message>
    <message>
        <source>duplicate:</source>
        <translation>重複:</translation>
    </message>
</context>
<context>
    <name>KMSolution</name>
    <message>
        <source>untitled</source>
        <translation>無題</translation>
    </message>
    <message>
        <source>AutoSave</source>
        <translation>自動保存</translation>
    </message>
    <message>
        <source>The document has been modified.</source>
        <translation>ドキュメントは変更されています。</translation>
    </message>
    <message>
        <source>Do you want to save your changes?</source>
        <translation>変更を保存しますか?</translation>
    </message>
</context>
<context>
    <name>KMStartFiles</name>
    <message>
        <source>There is a possibility that terminated abnormally last time.
Trying to Recover Files?</source>
        <translation>前回、異常終了した可能性があります。
ファイルを復元しますか?</translation>
    </message>
    <message>
        <source>Remove Recover Files?</source>
        <translation>復元用ファイルを削除しますか?</translation>
    </message>
</context>
<context>
    <name>KMViewColorPage</name>
    <message>
        <source>Item</source>
        <translation>項目</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>色</translation>
    </message>
    <message>
        <source>Edit...</source>
        <translation>編集...</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>リセット</translation>
    </message>
    <message>
        <source>Reset All</source>
        <translation>すべてリセット</translation>
    </message>
    <message>
        <source>Gives the selected item its default color</source>
        <translation>選択した項目を標準の色に戻します</translation>
    </message>
    <message>
        <source>Gives all items their default colors</source>
        <translation>すべての項目を標準の色に戻します</translation>
    </message>
    <message>
        <source>%1, %2, %3, %4</source>
        <translation>%1, %2, %3, %4</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>KELMO2</source>
        <translation>KELMO2</translation>
    </message>
    <message>
        <source>225</source>
        <translation>225</translation>
    </message>
</context>
<context>
    <name>addNodeCommand</name>
    <message>
        <source>Add Node</source>
        <translation>ノードの追加</translation>
    </message>
</context>
<context>
    <name>addShaderNodeCommand</name>
    <message>
        <source>Add ShaderNode</source>
        <translation>シェーダーの追加</translation>
    </message>
</context>
<context>
    <name>addTagCommand</name>
    <message>
        <source>Add Tag</source>
        <translation>タグの追加</translation>
    </message>
</context>
<context>
    <name>addTextureNodeCommand</name>
    <message>
        <source>Add TextureNode</source>
        <translation>テクスチャの追加</translation>
    </message>
</context>
<context>
    <name>changeNodeCommand</name>
    <message>
        <source>Change Node</source>
        <translation>ノードの変更</translation>
    </message>
</context>
<context>
    <name>deleteNodeCommand</name>
    <message>
        <source>Delete Node</source>
        <translation>ノードの削除</translation>
    </message>
</context>
<context>
    <name>deleteShaderNodeCommand</name>
    <message>
        <source>Delete ShaderNode</source>
        <translation>シェーダーの削除</translation>
    </message>
</context>
<context>
    <name>deleteTagCommand</name>
    <message>
        <source>Delete Tag</source>
        <translation>タグの削除</translation>
    </message>
</context>
<context>
    <name>deleteTextureNodeCommand</name>
    <message>
        <source>Delete TextureNode</source>
        <translation>テクスチャの削除</translation>
    </message>
</context>
<context>
    <name>editSRTCommand</name>
    <message>
        <source>Edit SRT</source>
        <translation>変形の編集</translation>
    </message>
</context>
<context>
    <name>editShaderNodeCommand</name>
    <message>
        <source>Edit BasicShaderNode</source>
        <translation>シェーダーの編集</translation>
    </message>
</context>
<context>
    <name>editTextureFilenameCommand</name>
    <message>
        <source>Edit Filename</source>
        <translation>ファイル名の変更</translation>
    </message>
</context>
<context>
    <name>kmpreferenceswidget</name>
    <message>
        <source>Global</source>
        <translation>全般</translation>
    </message>
    <message>
        <source>AutoSave</source>
        <translation>自動保存</translation>
    </message>
    <message>
        <source>Backup</source>
        <translation>バックアップ</translation>
    </message>
    <message>
        <source>Operation</source>
        <translation>操作</translation>
    </message>
    <message>
        <source>Navigation</source>
        <translation>ナビゲーション</translation>
    </message>
    <message>
        <source>Pen &amp; Touch</source>
        <translation>ペンとタッチ</translation>
    </message>
    <message>
        <source>OpenGL</source>
        <translation>OpenGL</translation>
    </message>
    <message>
        <source>View Color</source>
        <translation>表示色</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>ショートカット</translation>
    </message>
    <message>
        <source>UV Operation</source>
        <translation>UV操作</translation>
    </message>
    <message>
        <source>Custom Panel</source>
        <translation>カスタムパネル</translation>
    </message>
    <message>
        <source>Preferences</source>
        <translation>環境設定</translation>
    </message>
</context>
<context>
    <name>moveNodeCommand</name>
    <message>
        <source>Move Node</source>
        <translation>ノードの移動</translation>
    </message>
</context>
<context>
    <name>moveTagCommand</name>
    <message>
        <source>Move Tag</source>
        <translation>タグの移動</translation>
    </message>
</context>
<context>
    <name>reinfoNodeCommand</name>
    <message>
        <source>Edit Info</source>
        <translation>情報の編集</translation>
    </message>
</context>
<context>
    <name>remakeEmbeddedTextureCommand</name>
    <message>
        <source>Edit Group</source>
        <translation>グループの編集</translation>
    </message>
</context>
<context>
    <name>renameKMPNodeCommand</name>
    <message>
        <source>Rename Node</source>
        <translation>ノード名の変更</translation>
    </message>
</context>
<context>
    <name>renameNodeCommand</name>
    <message>
        <source>Rename Node</source>
        <translation>ノード名の変更</translation>
    </message>
</context>
<context>
    <name>renameTagCommand</name>
    <message>
        <source>Rename Tag</source>
        <translation>タグ名の変更</translation>
    </message>
</context>
<context>
    <name>selectNodeCommand</name>
    <message>
        <source>Select Node</source>
        <translation>ノードの選択</translation>
    </message>
</context>
<context>
    <name>setBoolBoolCommand</name>
    <message>
        <source>Set Bool</source>
        <translation>真偽値の設定</translation>
    </message>
</context>
<context>
    <name>setFloatFloatCommand</name>
    <message>
        <source>Set Float</source>
        <translation>小数の設定</translation>
    </message>
</context>
<context>
    <name>setLockedCommand</name>
    <message>
        <source>Set Lock</source>
        <translation>ロックの切り替え</translation>
    </message>
</context>
<context>
    <name>setParameterCommand</name>
    <message>
        <source>Set Int</source>
        <translation>整数の設定</translation>
    </message>
</context>
<context>
    <name>setVisibleCommand</name>
    <message>
        <source>Set Visible</source>
        <translation>表示の切り替え</translation>
    </message>
</context>
</TS>
