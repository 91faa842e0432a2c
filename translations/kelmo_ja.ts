<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP" sourcelanguage="en">
<context>
    <name>ComClearBuffer</name>
    <message>
        <source>clear Buffer</source>
        <translation>バッファをクリア</translation>
    </message>
</context>
<context>
    <name>ComDeleteCurrentNode</name>
    <message>
        <source>Delete Node</source>
        <translation>ノードの削除</translation>
    </message>
</context>
<context>
    <name>ComDeleteNull</name>
    <message>
        <source>delete StandAlone NullNode</source>
        <translation>子のないヌルを削除</translation>
    </message>
</context>
<context>
    <name>ComDeleteUnusedShader</name>
    <message>
        <source>Delete unused shader</source>
        <translation>未使用のシェーダーを削除</translation>
    </message>
</context>
<context>
    <name>ComDeleteUnusedTexture</name>
    <message>
        <source>Delete unused texture</source>
        <translation>未使用のテクスチャを削除</translation>
    </message>
</context>
<context>
    <name>ComDoLastCommand</name>
    <message>
        <source>Do Last Command</source>
        <translation>直前のコマンドを繰り返す</translation>
    </message>
    <message>
        <source>No command was run yet</source>
        <translation>まだコマンドが実行されていません</translation>
    </message>
</context>
<context>
    <name>ComHideAll</name>
    <message>
        <source>Hide All</source>
        <translation>すべて隠す</translation>
    </message>
</context>
<context>
    <name>ComSelectAll</name>
    <message>
        <source>Select All</source>
        <translation>すべて選択</translation>
    </message>
</context>
<context>
    <name>ComSelectLastNode</name>
    <message>
        <source>Select LastNode</source>
        <translation>前のノードを選択</translation>
    </message>
    <message>
        <source>No node was selected before</source>
        <translation>前に選択したノードがありません</translation>
    </message>
</context>
<context>
    <name>ComShowAll</name>
    <message>
        <source>Show All</source>
        <translation>すべて表示</translation>
    </message>
</context>
<context>
    <name>ComShowCurrentOnly</name>
    <message>
        <source>Show current only</source>
        <translation>現在のノードだけ表示</translation>
    </message>
    <message>
        <source>Select a node first</source>
        <translation>先にノードを選択してください</translation>
    </message>
</context>
<context>
    <name>ComUnselectAll</name>
    <message>
        <source>Unselect All</source>
        <translation>すべて選択解除</translation>
    </message>
</context>
<context>
    <name>KMBasicShaderNode</name>
    <message>
        <source>Shader</source>
        <translation>シェーダー</translation>
    </message>
</context>
<context>
    <name>KMBasicShaderPage</name>
    <message>
        <source>None</source>
        <translation>なし</translation>
    </message>
    <message>
        <source>Shading</source>
        <translation>シェーディング</translation>
    </message>
    <message>
        <source>Lambert</source>
        <translation>ランバート</translation>
    </message>
    <message>
        <source>Unlit</source>
        <translation>陰影なし</translation>
    </message>
    <message>
        <source>Half Lambert</source>
        <translation>ハーフランバート</translation>
    </message>
    <message>
        <source>Diffuse</source>
        <translation>拡散色</translation>
    </message>
    <message>
        <source>Specular</source>
        <translation>反射色</translation>
    </message>
    <message>
        <source>Ambient</source>
        <translation>環境色</translation>
    </message>
    <message>
        <source>Emissive</source>
        <translation>自己発光</translation>
    </message>
    <message>
        <source>Shininess</source>
        <translation>反射の強さ</translation>
    </message>
    <message>
        <source>Double sided</source>
        <translation>両面描画</translation>
    </message>
    <message>
        <source>Textures</source>
        <translation>テクスチャ</translation>
    </message>
    <message>
        <source>Second</source>
        <translation>2枚目</translation>
    </message>
    <message>
        <source>Mixing</source>
        <translation>合成</translation>
    </message>
    <message>
        <source>Mix</source>
        <translation>混合</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>加算</translation>
    </message>
    <message>
        <source>Multiply</source>
        <translation>乗算</translation>
    </message>
    <message>
        <source>Normal</source>
        <translation>通常</translation>
    </message>
    <message>
        <source>Toon</source>
        <translation>トゥーン</translation>
    </message>
    <message>
        <source>Sphere</source>
        <translation>スフィア</translation>
    </message>
    <message>
        <source>Multiply sphere map</source>
        <translation>スフィアを乗算</translation>
    </message>
    <message>
        <source>Outline</source>
        <translation>輪郭線</translation>
    </message>
    <message>
        <source>Draw outline</source>
        <translation>輪郭線を描く</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>色</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>太さ</translation>
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
    <name>KMColorField</name>
    <message>
        <source>Red %1, green %2, blue %3, alpha %4</source>
        <translation>赤 %1、緑 %2、青 %3、不透明度 %4</translation>
    </message>
</context>
<context>
    <name>KMDReader</name>
    <message>
        <source>The file doesn&apos;t exist</source>
        <translation>ファイルがありません</translation>
    </message>
    <message>
        <source>This is a folder, not a file</source>
        <translation>ファイルではなくフォルダーです</translation>
    </message>
    <message>
        <source>This is not a regular file</source>
        <translation>通常のファイルではありません</translation>
    </message>
    <message>
        <source>The file can&apos;t be opened: %1</source>
        <translation>ファイルを開けません: %1</translation>
    </message>
    <message>
        <source>The file is too large: %1 bytes</source>
        <translation>ファイルが大きすぎます: %1 バイト</translation>
    </message>
    <message>
        <source>The file can&apos;t be read: %1</source>
        <translation>ファイルを読み込めません: %1</translation>
    </message>
    <message>
        <source>This is not a model file: %1</source>
        <translation>モデルファイルではありません: %1</translation>
    </message>
    <message>
        <source>The file is damaged: %1</source>
        <translation>ファイルが壊れています: %1</translation>
    </message>
    <message>
        <source>header</source>
        <translation>ヘッダー</translation>
    </message>
    <message>
        <source>The version %1 is none that this program knows</source>
        <translation>バージョン %1 には対応していません</translation>
    </message>
    <message>
        <source>project</source>
        <translation>プロジェクト</translation>
    </message>
    <message>
        <source>This file was saved for release 1, which later releases don&apos;t read back</source>
        <translation>このファイルはリリース1用に保存されているため、以降のリリースでは読み込めません</translation>
    </message>
    <message>
        <source>nodes</source>
        <translation>ノード</translation>
    </message>
    <message>
        <source>A node names an unknown parent and was put at the top</source>
        <translation>親が不明なノードを最上位に置きました</translation>
    </message>
    <message>
        <source>A node lies too deep in the tree and was moved up</source>
        <translation>階層が深すぎるノードを上に移しました</translation>
    </message>
    <message>
        <source>A node of the unknown type 0x%1</source>
        <translation>不明な種類 0x%1 のノードです</translation>
    </message>
    <message>
        <source>A node of the type 0x%1 can&apos;t be shown and was left out</source>
        <translation>種類 0x%1 のノードは表示できないため除きました</translation>
    </message>
    <message>
        <source>display groups</source>
        <translation>表示枠</translation>
    </message>
    <message>
        <source>The display group %1 was left out</source>
        <translation>表示枠 %1 を除きました</translation>
    </message>
    <message>
        <source>current nodes</source>
        <translation>現在のノード</translation>
    </message>
    <message>
        <source>schematic</source>
        <translation>スケマティック</translation>
    </message>
    <message>
        <source>The schematic was left out</source>
        <translation>スケマティックを除きました</translation>
    </message>
    <message>
        <source>There is something behind the end</source>
        <translation>終端の後に余分なデータがあります</translation>
    </message>
</context>
<context>
    <name>KMDSceneBuilder</name>
    <message>
        <source>Load kmd</source>
        <translation>kmdの読み込み</translation>
    </message>
</context>
<context>
    <name>KMDStream</name>
    <message>
        <source>%1, byte %2</source>
        <translation>%1、%2 バイト目</translation>
    </message>
    <message>
        <source>%1, element %2 of %3, byte %4</source>
        <translation>%1、要素 %2 / %3、%4 バイト目</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>ほか %1 件</translation>
    </message>
    <message>
        <source>The file ends too early</source>
        <translation>ファイルが途中で終わっています</translation>
    </message>
    <message>
        <source>A number that is not finite was replaced</source>
        <translation>有限でない数値を置き換えました</translation>
    </message>
    <message>
        <source>A text of %1 bytes can&apos;t be</source>
        <translation>%1 バイトの文字列はありえません</translation>
    </message>
    <message>
        <source>A colour of the unknown kind %1</source>
        <translation>不明な種類 %1 の色です</translation>
    </message>
    <message>
        <source>A picture doesn&apos;t begin as one</source>
        <translation>画像の先頭が正しくありません</translation>
    </message>
    <message>
        <source>%1 records are promised, but only %2 bytes are left</source>
        <translation>%1 件のレコードがあるはずですが、残りは %2 バイトです</translation>
    </message>
</context>
<context>
    <name>KMDWriter</name>
    <message>
        <source>The node %1 has no place in the file</source>
        <translation>ノード %1 はこのファイルに保存できません</translation>
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
    <name>KMDockWidget</name>
    <message>
        <source>Show or hide the panel %1</source>
        <translation>パネル「%1」を表示または隠す</translation>
    </message>
</context>
<context>
    <name>KMEachNodeCommand</name>
    <message>
        <source>%1: nothing to do</source>
        <translation>%1: 対象がありません</translation>
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
    <name>KMEmbeddedTexturePage</name>
    <message>
        <source>Export...</source>
        <translation>書き出し...</translation>
    </message>
    <message>
        <source>Replace...</source>
        <translation>置き換え...</translation>
    </message>
    <message>
        <source>%1 holds no picture that can be read.</source>
        <translation>%1 に読み込める画像がありません。</translation>
    </message>
    <message>
        <source>Export Image</source>
        <translation>画像の書き出し</translation>
    </message>
    <message>
        <source>%1 could not be written.</source>
        <translation>%1 に書き込めませんでした。</translation>
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
    <name>KMFileTexturePage</name>
    <message>
        <source>Choose the file</source>
        <translation>ファイルを選択します</translation>
    </message>
    <message>
        <source>File</source>
        <translation>ファイル</translation>
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
    <name>KMImageFiles</name>
    <message>
        <source>Images (%1)</source>
        <translation>画像 (%1)</translation>
    </message>
    <message>
        <source>PNG Image (*.png);;JPEG Image (*.jpg);;BMP Image (*.bmp)</source>
        <translation>PNG画像 (*.png);;JPEG画像 (*.jpg);;BMP画像 (*.bmp)</translation>
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
    <name>KMMainBox</name>
    <message>
        <source>or drop a file here</source>
        <translation>またはファイルをここにドロップ</translation>
    </message>
</context>
<context>
    <name>KMMarqueeSelect</name>
    <message>
        <source>Rect Select</source>
        <translation>矩形選択</translation>
    </message>
    <message>
        <source>Lasso Select</source>
        <translation>投げ縄選択</translation>
    </message>
</context>
<context>
    <name>KMMeshClipboard</name>
    <message>
        <source>Copy faces first</source>
        <translation>先に面をコピーしてください</translation>
    </message>
    <message>
        <source>Select a mesh first</source>
        <translation>先にメッシュを選択してください</translation>
    </message>
    <message>
        <source>The mesh is locked</source>
        <translation>メッシュはロックされています</translation>
    </message>
    <message>
        <source>Nothing to paste</source>
        <translation>貼り付けるものがありません</translation>
    </message>
</context>
<context>
    <name>KMMeshEdit</name>
    <message>
        <source>Assign Shader</source>
        <translation>シェーダーの割り当て</translation>
    </message>
    <message>
        <source>Delete Selection Node</source>
        <translation>選択要素の削除</translation>
    </message>
    <message>
        <source>Merge Vertex</source>
        <translation>頂点の結合</translation>
    </message>
</context>
<context>
    <name>KMMeshNode</name>
    <message>
        <source>Mesh</source>
        <translation>メッシュ</translation>
    </message>
</context>
<context>
    <name>KMMeshPaste</name>
    <message>
        <source>Paste Mesh</source>
        <translation>メッシュの貼り付け</translation>
    </message>
</context>
<context>
    <name>KMMeshSelect</name>
    <message>
        <source>Select Vertex</source>
        <translation>頂点の選択</translation>
    </message>
    <message>
        <source>Unselect Vertex</source>
        <translation>頂点の選択解除</translation>
    </message>
    <message>
        <source>Select Edge</source>
        <translation>辺の選択</translation>
    </message>
    <message>
        <source>Unselect Edge</source>
        <translation>辺の選択解除</translation>
    </message>
    <message>
        <source>Select Face</source>
        <translation>面の選択</translation>
    </message>
    <message>
        <source>Unselect Face</source>
        <translation>面の選択解除</translation>
    </message>
    <message>
        <source>Select UV</source>
        <translation>UV の選択</translation>
    </message>
    <message>
        <source>Unselect UV</source>
        <translation>UV の選択解除</translation>
    </message>
    <message>
        <source>UnSelectAll</source>
        <translation>すべて選択解除</translation>
    </message>
    <message>
        <source>UnSelect All UV</source>
        <translation>すべての UV の選択解除</translation>
    </message>
</context>
<context>
    <name>KMNativeFormat</name>
    <message>
        <source>The file can&apos;t be written: %1</source>
        <translation>ファイルに書き込めません: %1</translation>
    </message>
</context>
<context>
    <name>KMNodeClipboard</name>
    <message>
        <source>Paste</source>
        <translation>貼り付け</translation>
    </message>
</context>
<context>
    <name>KMNodeEdits</name>
    <message>
        <source>Move Node</source>
        <translation>ノードの移動</translation>
    </message>
    <message>
        <source>Group</source>
        <translation>グループ化</translation>
    </message>
    <message>
        <source>Delete Node</source>
        <translation>ノードの削除</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>複製</translation>
    </message>
    <message>
        <source>Set Visible</source>
        <translation>表示の切り替え</translation>
    </message>
    <message>
        <source>Set Lock</source>
        <translation>ロックの切り替え</translation>
    </message>
</context>
<context>
    <name>KMNodeFilter</name>
    <message>
        <source>All</source>
        <translation>すべて</translation>
    </message>
    <message>
        <source>Values</source>
        <translation>値</translation>
    </message>
    <message>
        <source>Nulls</source>
        <translation>ヌル</translation>
    </message>
    <message>
        <source>Meshes</source>
        <translation>メッシュ</translation>
    </message>
    <message>
        <source>Primitives</source>
        <translation>プリミティブ</translation>
    </message>
    <message>
        <source>Modifiers</source>
        <translation>モディファイア</translation>
    </message>
    <message>
        <source>Bones</source>
        <translation>ボーン</translation>
    </message>
</context>
<context>
    <name>KMNodePage</name>
    <message>
        <source>Name</source>
        <translation>名前</translation>
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
    <name>KMNullPage</name>
    <message>
        <source>Position</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>Rotation</source>
        <translation>回転</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>拡大</translation>
    </message>
    <message>
        <source>Degrees about X first, then Y, then Z</source>
        <translation>X、Y、Zの順に回す角度(度)</translation>
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
    <name>KMProjectDialog</name>
    <message>
        <source>Project</source>
        <translation>プロジェクト</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名前</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>情報</translation>
    </message>
    <message>
        <source>Text %1</source>
        <translation>テキスト %1</translation>
    </message>
    <message>
        <source>Edit Info</source>
        <translation>情報の編集</translation>
    </message>
</context>
<context>
    <name>KMProjectPage</name>
    <message>
        <source>Information</source>
        <translation>情報</translation>
    </message>
    <message>
        <source>Nodes</source>
        <translation>ノード</translation>
    </message>
    <message>
        <source>Shaders</source>
        <translation>シェーダー</translation>
    </message>
    <message>
        <source>Textures</source>
        <translation>テクスチャ</translation>
    </message>
</context>
<context>
    <name>KMSaveQuestion</name>
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
    <name>KMSelectionTransform</name>
    <message>
        <source>Move Selection</source>
        <translation>選択要素の移動</translation>
    </message>
    <message>
        <source>Scale Selection</source>
        <translation>選択要素の拡大縮小</translation>
    </message>
    <message>
        <source>Rotate Selection</source>
        <translation>選択要素の回転</translation>
    </message>
    <message>
        <source>Snap Vertex</source>
        <translation>頂点のスナップ</translation>
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
    <name>KMShelfDock</name>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>名前の変更</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>複製</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>削除</translation>
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
    <name>KMTagPage</name>
    <message>
        <source>Name</source>
        <translation>名前</translation>
    </message>
</context>
<context>
    <name>KMTexturePage</name>
    <message>
        <source>Size</source>
        <translation>太さ</translation>
    </message>
    <message>
        <source>no picture</source>
        <translation>画像なし</translation>
    </message>
    <message>
        <source>%1 x %2</source>
        <translation>%1 x %2</translation>
    </message>
    <message>
        <source>Open Image</source>
        <translation>画像を開く</translation>
    </message>
</context>
<context>
    <name>KMUndoToolBar</name>
    <message>
        <source>Icons</source>
        <translation>アイコン</translation>
    </message>
    <message>
        <source>Texts</source>
        <translation>文字</translation>
    </message>
    <message>
        <source>Icons with text beside</source>
        <translation>アイコンの横に文字</translation>
    </message>
    <message>
        <source>Icons with text below</source>
        <translation>アイコンの下に文字</translation>
    </message>
    <message>
        <source>Undo Panel</source>
        <translation>元に戻すパネル</translation>
    </message>
</context>
<context>
    <name>KMValuePage</name>
    <message>
        <source>Value</source>
        <translation>値</translation>
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
    <name>QPlatformTheme</name>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
</context>
<context>
    <name>addFaceCommand</name>
    <message>
        <source>Add Face</source>
        <translation>面の追加</translation>
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
    <name>addVertexCommand</name>
    <message>
        <source>Add Vertex</source>
        <translation>頂点の追加</translation>
    </message>
</context>
<context>
    <name>buildEdgeCommand</name>
    <message>
        <source>Build Edge</source>
        <translation>辺の構築</translation>
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
    <name>compactMeshCommand</name>
    <message>
        <source>Compact</source>
        <translation>整理</translation>
    </message>
</context>
<context>
    <name>decrementShaderIndexCommand</name>
    <message>
        <source>Decrement ShaderIndex</source>
        <translation>シェーダー番号の繰り下げ</translation>
    </message>
</context>
<context>
    <name>deleteFaceCommand</name>
    <message>
        <source>Delete Face</source>
        <translation>面の削除</translation>
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
    <name>deleteVertexCommand</name>
    <message>
        <source>Delete Vertex</source>
        <translation>頂点の削除</translation>
    </message>
</context>
<context>
    <name>editAllVertexCommand</name>
    <message>
        <source>Edit All Vertex</source>
        <translation>全頂点の編集</translation>
    </message>
</context>
<context>
    <name>editFaceShaderCommand</name>
    <message>
        <source>Edit Face Shader</source>
        <translation>面のシェーダーの編集</translation>
    </message>
</context>
<context>
    <name>editFaceTopologyCommand</name>
    <message>
        <source>Edit Face Topology</source>
        <translation>面の構成の編集</translation>
    </message>
</context>
<context>
    <name>editFaceUVCommand</name>
    <message>
        <source>Edit Face UV</source>
        <translation>面のUVの編集</translation>
    </message>
</context>
<context>
    <name>editMeshNodeCommand</name>
    <message>
        <source>Edit MeshNode</source>
        <translation>メッシュの編集</translation>
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
    <name>editVertexTopologyCommand</name>
    <message>
        <source>Edit Vertex Topology</source>
        <translation>頂点の構成の編集</translation>
    </message>
</context>
<context>
    <name>forceMeshUpdateCommand</name>
    <message>
        <source>Force Update</source>
        <translation>強制更新</translation>
    </message>
</context>
<context>
    <name>kmattributewidget</name>
    <message>
        <source>Attribute</source>
        <translation>属性</translation>
    </message>
</context>
<context>
    <name>kmhistorywidget</name>
    <message>
        <source>History</source>
        <translation>履歴</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>開始</translation>
    </message>
</context>
<context>
    <name>kmmainwidget</name>
    <message>
        <source>Nodes %1   Shaders %2   Textures %3</source>
        <translation>ノード %1   シェーダー %2   テクスチャ %3</translation>
    </message>
    <message>
        <source>New</source>
        <translation>新規</translation>
    </message>
    <message>
        <source>Start an empty document</source>
        <translation>空のドキュメントを始めます</translation>
    </message>
    <message>
        <source>Open...</source>
        <translation>開く...</translation>
    </message>
    <message>
        <source>Open a model file</source>
        <translation>モデルファイルを開きます</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Save the document</source>
        <translation>ドキュメントを保存します</translation>
    </message>
    <message>
        <source>Save as</source>
        <translation>名前を付けて保存</translation>
    </message>
    <message>
        <source>Save the document under another name</source>
        <translation>ドキュメントを別の名前で保存します</translation>
    </message>
    <message>
        <source>Project...</source>
        <translation>プロジェクト...</translation>
    </message>
    <message>
        <source>Edit the name and the texts of the project</source>
        <translation>プロジェクトの名前とテキストを編集します</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>終了</translation>
    </message>
    <message>
        <source>Close the program</source>
        <translation>プログラムを終了します</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>クリア</translation>
    </message>
    <message>
        <source>Forget the files that were opened last</source>
        <translation>最近開いたファイルの一覧を消します</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>切り取り</translation>
    </message>
    <message>
        <source>Copy the selected nodes and delete them</source>
        <translation>選択したノードをコピーして削除します</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>コピー</translation>
    </message>
    <message>
        <source>Copy the selected nodes</source>
        <translation>選択したノードをコピーします</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>貼り付け</translation>
    </message>
    <message>
        <source>Insert the copied nodes</source>
        <translation>コピーしたノードを挿入します</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>複製</translation>
    </message>
    <message>
        <source>Put a copy behind each selected node</source>
        <translation>選択した各ノードの後に複製を置きます</translation>
    </message>
    <message>
        <source>Group under Null</source>
        <translation>ヌルでグループ化</translation>
    </message>
    <message>
        <source>Put the selected nodes under a new null</source>
        <translation>選択したノードを新しいヌルの下に置きます</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>名前の変更</translation>
    </message>
    <message>
        <source>Rename the current node</source>
        <translation>現在のノードの名前を変更します</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>削除</translation>
    </message>
    <message>
        <source>Delete the selected nodes</source>
        <translation>選択したノードを削除します</translation>
    </message>
    <message>
        <source>Preferences</source>
        <translation>環境設定</translation>
    </message>
    <message>
        <source>Settings, colors and shortcuts</source>
        <translation>設定、色、ショートカット</translation>
    </message>
    <message>
        <source>Int</source>
        <translation>整数</translation>
    </message>
    <message>
        <source>Add a whole number</source>
        <translation>整数を追加します</translation>
    </message>
    <message>
        <source>Float</source>
        <translation>小数</translation>
    </message>
    <message>
        <source>Add a number</source>
        <translation>数値を追加します</translation>
    </message>
    <message>
        <source>Bool</source>
        <translation>真偽値</translation>
    </message>
    <message>
        <source>Add a switch</source>
        <translation>スイッチを追加します</translation>
    </message>
    <message>
        <source>Null</source>
        <translation>ヌル</translation>
    </message>
    <message>
        <source>Add a null, which groups other nodes</source>
        <translation>ほかのノードをまとめるヌルを追加します</translation>
    </message>
    <message>
        <source>Shader</source>
        <translation>シェーダー</translation>
    </message>
    <message>
        <source>Add a basic shader</source>
        <translation>基本シェーダーを追加します</translation>
    </message>
    <message>
        <source>PbrShader</source>
        <translation>PBRシェーダー</translation>
    </message>
    <message>
        <source>Add a physically based shader</source>
        <translation>物理ベースのシェーダーを追加します</translation>
    </message>
    <message>
        <source>PTexture</source>
        <translation>プロシージャルテクスチャ</translation>
    </message>
    <message>
        <source>Add a texture that the program computes</source>
        <translation>計算で作られるテクスチャを追加します</translation>
    </message>
    <message>
        <source>EmbeddedTexture</source>
        <translation>埋め込みテクスチャ</translation>
    </message>
    <message>
        <source>Add a texture that lies in the document</source>
        <translation>ドキュメントに埋め込むテクスチャを追加します</translation>
    </message>
    <message>
        <source>Texture File...</source>
        <translation>テクスチャファイル...</translation>
    </message>
    <message>
        <source>Add a texture from a picture file</source>
        <translation>画像ファイルからテクスチャを追加します</translation>
    </message>
    <message>
        <source>About</source>
        <translation>バージョン情報</translation>
    </message>
    <message>
        <source>What this program is</source>
        <translation>このプログラムについて</translation>
    </message>
    <message>
        <source>About Qt</source>
        <translation>Qtについて</translation>
    </message>
    <message>
        <source>About the toolkit Qt</source>
        <translation>ツールキットQtについて</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>元に戻す</translation>
    </message>
    <message>
        <source>Take the last step back</source>
        <translation>直前の操作を取り消します</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>やり直し</translation>
    </message>
    <message>
        <source>Do the step again that was taken back</source>
        <translation>取り消した操作をやり直します</translation>
    </message>
    <message>
        <source>Code Editor</source>
        <translation>コードエディター</translation>
    </message>
    <message>
        <source>Scripts are written and run here.</source>
        <translation>ここでスクリプトを書いて実行します。</translation>
    </message>
    <message>
        <source>Schematic</source>
        <translation>スケマティック</translation>
    </message>
    <message>
        <source>Nodes are wired to one another here.</source>
        <translation>ここでノードどうしをつなぎます。</translation>
    </message>
    <message>
        <source>Bones</source>
        <translation>ボーン</translation>
    </message>
    <message>
        <source>The bones of the current container are listed here.</source>
        <translation>現在のコンテナーのボーンがここに並びます。</translation>
    </message>
    <message>
        <source>Tool</source>
        <translation>ツール</translation>
    </message>
    <message>
        <source>The options of the current tool stand here.</source>
        <translation>現在のツールのオプションがここに出ます。</translation>
    </message>
    <message>
        <source>Coordinate</source>
        <translation>座標</translation>
    </message>
    <message>
        <source>The position of the selection stands here.</source>
        <translation>選択の位置がここに出ます。</translation>
    </message>
    <message>
        <source>Animation</source>
        <translation>アニメーション</translation>
    </message>
    <message>
        <source>Frames and keys of the motion stand here.</source>
        <translation>モーションのフレームとキーがここに出ます。</translation>
    </message>
    <message>
        <source>Setup</source>
        <translation>セットアップ</translation>
    </message>
    <message>
        <source>Physics and display groups are set up here.</source>
        <translation>物理と表示枠をここで設定します。</translation>
    </message>
    <message>
        <source>Select a node first</source>
        <translation>先にノードを選択してください</translation>
    </message>
    <message>
        <source>Open Image</source>
        <translation>画像を開く</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <translation>%1 %2</translation>
    </message>
    <message>
        <source>A polygon modeller for character models.</source>
        <translation>キャラクターモデル用のポリゴンモデラーです。</translation>
    </message>
    <message>
        <source>This program uses Qt version %1.</source>
        <translation>このプログラムはQtバージョン %1 を使用しています。</translation>
    </message>
    <message>
        <source>Qt is a toolkit for programs with a user interface, used here under the GNU Lesser General Public License. See https://www.qt.io for more.</source>
        <translation>Qtはユーザーインターフェイスを持つプログラムのためのツールキットで、ここではLGPLのもとで使用しています。詳しくは https://www.qt.io をご覧ください。</translation>
    </message>
    <message>
        <source>Open File</source>
        <translation>ファイルを開く</translation>
    </message>
    <message>
        <source>kelmo Model File (*.kmd)</source>
        <translation>kelmoモデルファイル (*.kmd)</translation>
    </message>
    <message>
        <source>Save File</source>
        <translation>ファイルの保存</translation>
    </message>
    <message>
        <source>This operation is cannot be undone.</source>
        <translation>この操作は元に戻せません。</translation>
    </message>
    <message>
        <source>%1 is no file that can be opened here.</source>
        <translation>%1 はここで開けるファイルではありません。</translation>
    </message>
    <message>
        <source>Add TextureNode</source>
        <translation>テクスチャの追加</translation>
    </message>
    <message>
        <source>File(&amp;F)</source>
        <translation>ファイル(&amp;F)</translation>
    </message>
    <message>
        <source>Recent Files</source>
        <translation>最近使ったファイル</translation>
    </message>
    <message>
        <source>Edit(&amp;E)</source>
        <translation>編集(&amp;E)</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>表示</translation>
    </message>
    <message>
        <source>Clean up</source>
        <translation>整理</translation>
    </message>
    <message>
        <source>Create(&amp;C)</source>
        <translation>作成(&amp;C)</translation>
    </message>
    <message>
        <source>Widget(&amp;W)</source>
        <translation>ウィジェット(&amp;W)</translation>
    </message>
    <message>
        <source>Panel(&amp;P)</source>
        <translation>パネル(&amp;P)</translation>
    </message>
    <message>
        <source>Show or hide the buttons for undo and redo</source>
        <translation>元に戻すボタンとやり直しボタンを表示または隠す</translation>
    </message>
    <message>
        <source>Status Bar</source>
        <translation>ステータスバー</translation>
    </message>
    <message>
        <source>Show or hide the line of messages</source>
        <translation>メッセージの行を表示または隠す</translation>
    </message>
    <message>
        <source>Help(&amp;H)</source>
        <translation>ヘルプ(&amp;H)</translation>
    </message>
    <message>
        <source>Insert Paste</source>
        <translation>挿入貼り付け</translation>
    </message>
    <message>
        <source>Mirror Paste</source>
        <translation>鏡像貼り付け</translation>
    </message>
    <message>
        <source>Insert the copied faces and join them to vertices at the same place</source>
        <translation>コピーした面を挿入し、同じ位置の頂点につなぎます</translation>
    </message>
    <message>
        <source>Insert the copied faces on the other side of the symmetry plane</source>
        <translation>コピーした面を対称面の反対側に挿入します</translation>
    </message>
    <message>
        <source>Copy the selected faces, or the selected nodes</source>
        <translation>選択した面、または選択したノードをコピーします</translation>
    </message>
    <message>
        <source>Copy the selected faces or nodes and delete them</source>
        <translation>選択した面またはノードをコピーして削除します</translation>
    </message>
    <message>
        <source>Insert the copied faces or nodes</source>
        <translation>コピーした面またはノードを挿入します</translation>
    </message>
    <message>
        <source>Delete the selected elements, or the selected nodes</source>
        <translation>選択した要素、または選択したノードを削除します</translation>
    </message>
</context>
<context>
    <name>kmnodewidget</name>
    <message>
        <source>Nodes</source>
        <translation>ノード</translation>
    </message>
    <message>
        <source>Filter by name</source>
        <translation>名前で絞り込み</translation>
    </message>
    <message>
        <source>Kind of the nodes that are shown</source>
        <translation>表示するノードの種類</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名前</translation>
    </message>
    <message>
        <source>V</source>
        <translation>表</translation>
    </message>
    <message>
        <source>L</source>
        <translation>錠</translation>
    </message>
    <message>
        <source>Tags</source>
        <translation>タグ</translation>
    </message>
    <message>
        <source>Visible</source>
        <translation>表示</translation>
    </message>
    <message>
        <source>Locked</source>
        <translation>ロック</translation>
    </message>
    <message>
        <source>Rename Tag...</source>
        <translation>タグ名の変更...</translation>
    </message>
    <message>
        <source>Rename Tag</source>
        <translation>タグ名の変更</translation>
    </message>
    <message>
        <source>Delete Tag</source>
        <translation>タグの削除</translation>
    </message>
</context>
<context>
    <name>kmoutputwidget</name>
    <message>
        <source>Output</source>
        <translation>出力</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>クリア</translation>
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
    <name>kmshaderwidget</name>
    <message>
        <source>Shader</source>
        <translation>シェーダー</translation>
    </message>
</context>
<context>
    <name>kmtexturewidget</name>
    <message>
        <source>Texture</source>
        <translation>テクスチャ</translation>
    </message>
</context>
<context>
    <name>memoryEdgeWeightCommand</name>
    <message>
        <source>Memory Edge Weight</source>
        <translation>辺ウェイトの記録</translation>
    </message>
</context>
<context>
    <name>memoryVertexCommand</name>
    <message>
        <source>Memory Vertex</source>
        <translation>頂点の記録</translation>
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
    <name>moveVertexArrayCommand</name>
    <message>
        <source>Move Vertex</source>
        <translation>頂点の移動</translation>
    </message>
</context>
<context>
    <name>moveVertexCommand</name>
    <message>
        <source>Move Vertex</source>
        <translation>頂点の移動</translation>
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
    <name>setEdgeWeightCommand</name>
    <message>
        <source>Set Edge Weight</source>
        <translation>辺ウェイトの設定</translation>
    </message>
</context>
<context>
    <name>setFaceShaderListCommand</name>
    <message>
        <source>SetShaderIndexList</source>
        <translation>シェーダー番号の設定</translation>
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
    <name>setHideFaceCommand</name>
    <message>
        <source>Hide Face</source>
        <translation>面を隠す</translation>
    </message>
</context>
<context>
    <name>setLockUVCommand</name>
    <message>
        <source>Set Pinned UV</source>
        <translation>UVの固定</translation>
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
    <name>setSelectEdgeCommand</name>
    <message>
        <source>Select Edge</source>
        <translation>辺の選択</translation>
    </message>
</context>
<context>
    <name>setSelectFaceCommand</name>
    <message>
        <source>Select Face</source>
        <translation>面の選択</translation>
    </message>
</context>
<context>
    <name>setSelectUVCommand</name>
    <message>
        <source>Set Select UV</source>
        <translation>UVの選択</translation>
    </message>
</context>
<context>
    <name>setSelectVertexCommand</name>
    <message>
        <source>Select Vertex</source>
        <translation>頂点の選択</translation>
    </message>
</context>
<context>
    <name>setVertexWeightCommand</name>
    <message>
        <source>Set Vertex Weight</source>
        <translation>頂点ウェイトの設定</translation>
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
