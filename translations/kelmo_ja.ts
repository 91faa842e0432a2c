<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP" sourcelanguage="en">
<context>
    <name>BoneComAlignReflectBone</name>
    <message>
        <source>Side</source>
        <translation>側</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>右</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>左</translation>
    </message>
    <message>
        <source>No selected bone has a partner on the other side.</source>
        <translation>選択したボーンには反対側の対がありません。</translation>
    </message>
</context>
<context>
    <name>BoneComEditViewMode</name>
    <message>
        <source>Polygon</source>
        <translation>ポリゴン</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>線</translation>
    </message>
    <message>
        <source>Point</source>
        <translation>点</translation>
    </message>
    <message>
        <source>ViewMode</source>
        <translation>表示モード</translation>
    </message>
    <message>
        <source>The bones are shown so already.</source>
        <translation>ボーンは既にその表示です。</translation>
    </message>
</context>
<context>
    <name>BoneComMakeRigidBody</name>
    <message>
        <source>Bone Selection not found.</source>
        <translation>ボーンが選択されていません。</translation>
    </message>
    <message>
        <source>Shape Type</source>
        <translation>形状</translation>
    </message>
    <message>
        <source>With Joint</source>
        <translation>ジョイントを付ける</translation>
    </message>
</context>
<context>
    <name>BoneComMakeSideJoint</name>
    <message>
        <source>Two RigidBody Selection not found.</source>
        <translation>剛体が二つ選択されていません。</translation>
    </message>
</context>
<context>
    <name>BoneComSymmetrize</name>
    <message>
        <source>Bone Selection not found.</source>
        <translation>選択中のボーンがありません。</translation>
    </message>
    <message>
        <source>illegal head position</source>
        <translation>始点の位置が正しくありません</translation>
    </message>
    <message>
        <source>illegal tail position</source>
        <translation>終点の位置が正しくありません</translation>
    </message>
</context>
<context>
    <name>BoneWeightComBlur</name>
    <message>
        <source>Limit Area</source>
        <translation>範囲を限定</translation>
    </message>
    <message>
        <source>Threshold</source>
        <translation>しきい値</translation>
    </message>
    <message>
        <source>The weights are as even as their neighbours already.</source>
        <translation>ウェイトは既に周りと同じです。</translation>
    </message>
</context>
<context>
    <name>BoneWeightComTransfer</name>
    <message>
        <source>Select the mesh with the weights as well.</source>
        <translation>ウェイトを持つメッシュも選択してください。</translation>
    </message>
    <message>
        <source>Margin</source>
        <translation>許容範囲</translation>
    </message>
    <message>
        <source>No surface with weights lies within the margin.</source>
        <translation>許容範囲内にウェイトを持つ面がありません。</translation>
    </message>
    <message>
        <source>The vertices have these weights already.</source>
        <translation>頂点はすでにこのウェイトを持っています。</translation>
    </message>
</context>
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
    <message>
        <source>%1 is locked or hidden</source>
        <translation>%1 はロックまたは非表示です</translation>
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
    <name>KMAlignVertexDialog</name>
    <message>
        <source>World</source>
        <translation>ワールド</translation>
    </message>
    <message>
        <source>Local</source>
        <translation>ローカル</translation>
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
    <name>KMBevel</name>
    <message>
        <source>Bevel</source>
        <translation>ベベル</translation>
    </message>
</context>
<context>
    <name>KMBevelPage</name>
    <message>
        <source>Width</source>
        <translation>幅</translation>
    </message>
    <message>
        <source>Write the preview to the mesh</source>
        <translation>プレビューをメッシュに書き込みます</translation>
    </message>
</context>
<context>
    <name>KMBezierControl</name>
    <message>
        <source>Drag the two handles; a double click makes the curve straight</source>
        <translation>2 つのハンドルをドラッグします。ダブルクリックで直線に戻ります</translation>
    </message>
</context>
<context>
    <name>KMBluePrint</name>
    <message>
        <source>BluePrint</source>
        <translation>下絵</translation>
    </message>
</context>
<context>
    <name>KMBone</name>
    <message>
        <source>Bone</source>
        <translation>ボーン</translation>
    </message>
    <message>
        <source>Add Bone</source>
        <translation>ボーンを追加</translation>
    </message>
    <message>
        <source>A rig can&apos;t be deeper than %1 bones</source>
        <translation>リグの階層は %1 ボーンまでです</translation>
    </message>
</context>
<context>
    <name>KMBoneAxisCommand</name>
    <message>
        <source>axis</source>
        <translation>軸</translation>
    </message>
</context>
<context>
    <name>KMBoneCommand</name>
    <message>
        <source>Select All Bone</source>
        <translation>すべてのボーンを選択</translation>
    </message>
    <message>
        <source>Select all bones of the rig</source>
        <translation>リグのすべてのボーンを選択します</translation>
    </message>
    <message>
        <source>UnSelect All Bone</source>
        <translation>ボーンの選択をすべて解除</translation>
    </message>
    <message>
        <source>Take all bones out of the selection</source>
        <translation>すべてのボーンの選択を解除します</translation>
    </message>
    <message>
        <source>Insert Bone</source>
        <translation>ボーンを挿入</translation>
    </message>
    <message>
        <source>Add a bone that goes on from the selected one</source>
        <translation>選択中のボーンに続くボーンを追加します</translation>
    </message>
    <message>
        <source>Clone</source>
        <translation>複製</translation>
    </message>
    <message>
        <source>Copy the selected bones with all below them</source>
        <translation>選択中のボーンを配下ごと複製します</translation>
    </message>
    <message>
        <source>Create Symmetry Bone</source>
        <translation>対称ボーンを作成</translation>
    </message>
    <message>
        <source>Make the missing bones on the other side of the figure</source>
        <translation>反対側に欠けているボーンを作ります</translation>
    </message>
    <message>
        <source>Hide Selected Bone</source>
        <translation>選択ボーンを隠す</translation>
    </message>
    <message>
        <source>Hide the selected bones with all below them</source>
        <translation>選択中のボーンを配下ごと隠します</translation>
    </message>
    <message>
        <source>Show All Bone</source>
        <translation>すべてのボーンを表示</translation>
    </message>
    <message>
        <source>Show all bones of the rig</source>
        <translation>リグのすべてのボーンを表示します</translation>
    </message>
    <message>
        <source>Delete Selected Bone</source>
        <translation>選択ボーンを削除</translation>
    </message>
    <message>
        <source>Delete the selected bones; those below them stay</source>
        <translation>選択中のボーンを削除します。配下のボーンは残ります</translation>
    </message>
    <message>
        <source>Edit ViewMode</source>
        <translation>表示モードを編集</translation>
    </message>
    <message>
        <source>Choose how the selected bones are shown</source>
        <translation>選択中のボーンの表示方法を選びます</translation>
    </message>
    <message>
        <source>Align UpVector</source>
        <translation>上方向をそろえる</translation>
    </message>
    <message>
        <source>Turn the selected bones about themselves, so that an axis is up</source>
        <translation>選択中のボーンを軸が上を向くように回します</translation>
    </message>
    <message>
        <source>Align Position</source>
        <translation>位置をそろえる</translation>
    </message>
    <message>
        <source>Give the selected heads and tails the same coordinate</source>
        <translation>選択中の始点と終点を同じ座標にそろえます</translation>
    </message>
    <message>
        <source>Linearize</source>
        <translation>直線化</translation>
    </message>
    <message>
        <source>Put the joints of the selected chain on a line</source>
        <translation>選択中の連なりの関節を一直線に並べます</translation>
    </message>
    <message>
        <source>Symmetrize</source>
        <translation>対称化</translation>
    </message>
    <message>
        <source>Make the two selected bones images of each other</source>
        <translation>選択中の 2 本のボーンを互いに対称にします</translation>
    </message>
    <message>
        <source>Fit To Parent</source>
        <translation>親に合わせる</translation>
    </message>
    <message>
        <source>Turn and size the parents, so that they reach the selected bones</source>
        <translation>親ボーンが選択中のボーンに届くように向きと長さを合わせます</translation>
    </message>
    <message>
        <source>Fit To First Children</source>
        <translation>最初の子に合わせる</translation>
    </message>
    <message>
        <source>Turn and size the selected bones, so that they reach their first child</source>
        <translation>選択中のボーンが最初の子に届くように向きと長さを合わせます</translation>
    </message>
    <message>
        <source>Align a ReflectBone</source>
        <translation>反転ボーンに合わせる</translation>
    </message>
    <message>
        <source>Give the bones on one side the image of their partners</source>
        <translation>片側のボーンを反対側のボーンの鏡像にします</translation>
    </message>
    <message>
        <source>Convert Axis</source>
        <translation>軸を変換</translation>
    </message>
    <message>
        <source>Turn the selected bones about the origin by a quarter turn</source>
        <translation>選択中のボーンを原点の周りに 90 度回します</translation>
    </message>
    <message>
        <source>BoneFromEdge</source>
        <translation>エッジからボーン</translation>
    </message>
    <message>
        <source>Make a chain of bones along the selected edges</source>
        <translation>選択中のエッジに沿ってボーンの連なりを作ります</translation>
    </message>
    <message>
        <source>Inset MMD Bone</source>
        <translation>MMD ボーンを挿入</translation>
    </message>
    <message>
        <source>Add the bones of a standing figure</source>
        <translation>立ち姿の人体のボーンを追加します</translation>
    </message>
    <message>
        <source>BoneComTest</source>
        <translation>BoneComTest</translation>
    </message>
    <message>
        <source>Does nothing: for those who work on the program</source>
        <translation>何もしません。開発用の項目です</translation>
    </message>
    <message>
        <source>Devide Bone</source>
        <translation>ボーンを分割</translation>
    </message>
    <message>
        <source>Split the selected bones in two</source>
        <translation>選択中のボーンを 2 つに分けます</translation>
    </message>
    <message>
        <source>Layered Bone</source>
        <translation>ボーンを多段化</translation>
    </message>
    <message>
        <source>Put a second bone above each selected one, at the same place</source>
        <translation>選択中のボーンごとに同じ位置へ親ボーンを置きます</translation>
    </message>
    <message>
        <source>RootBone Selection not found.</source>
        <translation>選択中のルートボーンがありません。</translation>
    </message>
    <message>
        <source>Bone Selection not found.</source>
        <translation>選択中のボーンがありません。</translation>
    </message>
    <message>
        <source>Edge Selection not found.</source>
        <translation>辺が選択されていません。</translation>
    </message>
    <message>
        <source>Make RigidBody</source>
        <translation>剛体の作成</translation>
    </message>
    <message>
        <source>Give the selected bones rigid bodies of their length</source>
        <translation>選択したボーンに、その長さの剛体を付けます</translation>
    </message>
    <message>
        <source>Make Side Joint</source>
        <translation>サイドジョイントの作成</translation>
    </message>
    <message>
        <source>Hold the two selected rigid bodies together; with Ctrl the other is first</source>
        <translation>選択した二つの剛体をつなぎます。Ctrl で順序が逆になります</translation>
    </message>
    <message>
        <source>There is no bone for which this does anything.</source>
        <translation>対象になるボーンがありません。</translation>
    </message>
    <message>
        <source>The selected bones have their partners already.</source>
        <translation>選択したボーンには既に対があります。</translation>
    </message>
    <message>
        <source>The selected bones are no chain.</source>
        <translation>選択したボーンは一続きではありません。</translation>
    </message>
    <message>
        <source>The selected bones have no parents.</source>
        <translation>選択したボーンに親がありません。</translation>
    </message>
    <message>
        <source>The selected bones have no children.</source>
        <translation>選択したボーンに子がありません。</translation>
    </message>
    <message>
        <source>The bones stand so already.</source>
        <translation>ボーンは既にその位置です。</translation>
    </message>
</context>
<context>
    <name>KMBoneContainer</name>
    <message>
        <source>RootBone</source>
        <translation>RootBone</translation>
    </message>
</context>
<context>
    <name>KMBoneDrag</name>
    <message>
        <source>Move Bone</source>
        <translation>ボーンを移動</translation>
    </message>
    <message>
        <source>Scale Bone</source>
        <translation>ボーンを拡大縮小</translation>
    </message>
    <message>
        <source>Rotate Bone</source>
        <translation>ボーンを回転</translation>
    </message>
</context>
<context>
    <name>KMBoneEdit</name>
    <message numerus="yes">
        <source>%n bone(s) not changed: locked</source>
        <translation>
            <numerusform>%n 個のボーンはロックのため変更されませんでした</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>KMBoneKeys</name>
    <message>
        <source>%1 is locked</source>
        <translation>%1 はロックされています</translation>
    </message>
    <message>
        <source>Another bone has the name %1: keys go by names</source>
        <translation>%1 という名前のボーンがほかにあります。キーは名前で割り当てられます</translation>
    </message>
</context>
<context>
    <name>KMBoneMMDTemplate</name>
    <message>
        <source>root</source>
        <translation>全ての親</translation>
    </message>
    <message>
        <source>center</source>
        <translation>センター</translation>
    </message>
    <message>
        <source>upper body</source>
        <translation>上半身</translation>
    </message>
    <message>
        <source>upper body2</source>
        <translation>上半身2</translation>
    </message>
    <message>
        <source>neck</source>
        <translation>首</translation>
    </message>
    <message>
        <source>head</source>
        <translation>頭</translation>
    </message>
    <message>
        <source>eyes</source>
        <translation>両目</translation>
    </message>
    <message>
        <source>eye_L</source>
        <translation>左目</translation>
    </message>
    <message>
        <source>eye_R</source>
        <translation>右目</translation>
    </message>
    <message>
        <source>shoulder_L</source>
        <translation>左肩</translation>
    </message>
    <message>
        <source>shoulder_R</source>
        <translation>右肩</translation>
    </message>
    <message>
        <source>arm_L</source>
        <translation>左腕</translation>
    </message>
    <message>
        <source>arm_R</source>
        <translation>右腕</translation>
    </message>
    <message>
        <source>arm twist_L</source>
        <translation>左腕捩</translation>
    </message>
    <message>
        <source>arm twist_R</source>
        <translation>右腕捩</translation>
    </message>
    <message>
        <source>elbow_L</source>
        <translation>左ひじ</translation>
    </message>
    <message>
        <source>elbow_R</source>
        <translation>右ひじ</translation>
    </message>
    <message>
        <source>wrist twist_L</source>
        <translation>左手捩</translation>
    </message>
    <message>
        <source>wrist twist_R</source>
        <translation>右手捩</translation>
    </message>
    <message>
        <source>wrist_L</source>
        <translation>左手首</translation>
    </message>
    <message>
        <source>wrist_R</source>
        <translation>右手首</translation>
    </message>
    <message>
        <source>thumb1_L</source>
        <translation>左親指１</translation>
    </message>
    <message>
        <source>thumb1_R</source>
        <translation>右親指１</translation>
    </message>
    <message>
        <source>thumb2_L</source>
        <translation>左親指２</translation>
    </message>
    <message>
        <source>thumb2_R</source>
        <translation>右親指２</translation>
    </message>
    <message>
        <source>fore1_L</source>
        <translation>左人指１</translation>
    </message>
    <message>
        <source>fore1_R</source>
        <translation>右人指１</translation>
    </message>
    <message>
        <source>fore2_L</source>
        <translation>左人指２</translation>
    </message>
    <message>
        <source>fore2_R</source>
        <translation>右人指２</translation>
    </message>
    <message>
        <source>fore3_L</source>
        <translation>左人指３</translation>
    </message>
    <message>
        <source>fore3_R</source>
        <translation>右人指３</translation>
    </message>
    <message>
        <source>middle1_L</source>
        <translation>左中指１</translation>
    </message>
    <message>
        <source>middle1_R</source>
        <translation>右中指１</translation>
    </message>
    <message>
        <source>middle2_L</source>
        <translation>左中指２</translation>
    </message>
    <message>
        <source>middle2_R</source>
        <translation>右中指２</translation>
    </message>
    <message>
        <source>middle3_L</source>
        <translation>左中指３</translation>
    </message>
    <message>
        <source>middle3_R</source>
        <translation>右中指３</translation>
    </message>
    <message>
        <source>third1_L</source>
        <translation>左薬指１</translation>
    </message>
    <message>
        <source>third1_R</source>
        <translation>右薬指１</translation>
    </message>
    <message>
        <source>third2_L</source>
        <translation>左薬指２</translation>
    </message>
    <message>
        <source>third2_R</source>
        <translation>右薬指２</translation>
    </message>
    <message>
        <source>third3_L</source>
        <translation>左薬指３</translation>
    </message>
    <message>
        <source>third3_R</source>
        <translation>右薬指３</translation>
    </message>
    <message>
        <source>little1_L</source>
        <translation>左小指１</translation>
    </message>
    <message>
        <source>little1_R</source>
        <translation>右小指１</translation>
    </message>
    <message>
        <source>little2_L</source>
        <translation>左小指２</translation>
    </message>
    <message>
        <source>little2_R</source>
        <translation>右小指２</translation>
    </message>
    <message>
        <source>little3_L</source>
        <translation>左小指３</translation>
    </message>
    <message>
        <source>little3_R</source>
        <translation>右小指３</translation>
    </message>
    <message>
        <source>lower body</source>
        <translation>下半身</translation>
    </message>
    <message>
        <source>leg_L</source>
        <translation>左足</translation>
    </message>
    <message>
        <source>leg_R</source>
        <translation>右足</translation>
    </message>
    <message>
        <source>knee_L</source>
        <translation>左ひざ</translation>
    </message>
    <message>
        <source>knee_R</source>
        <translation>右ひざ</translation>
    </message>
    <message>
        <source>ankle_L</source>
        <translation>左足首</translation>
    </message>
    <message>
        <source>ankle_R</source>
        <translation>右足首</translation>
    </message>
    <message>
        <source>toe_L</source>
        <translation>左つま先</translation>
    </message>
    <message>
        <source>toe_R</source>
        <translation>右つま先</translation>
    </message>
    <message>
        <source>leg IK_L</source>
        <translation>左足ＩＫ</translation>
    </message>
    <message>
        <source>leg IK_R</source>
        <translation>右足ＩＫ</translation>
    </message>
    <message>
        <source>toe IK_L</source>
        <translation>左つま先ＩＫ</translation>
    </message>
    <message>
        <source>toe IK_R</source>
        <translation>右つま先ＩＫ</translation>
    </message>
</context>
<context>
    <name>KMBoneMoves</name>
    <message>
        <source>Copy Bone</source>
        <translation>ボーンを複製</translation>
    </message>
    <message>
        <source>A bone can&apos;t stand below itself</source>
        <translation>ボーンを自分自身の配下には置けません</translation>
    </message>
    <message numerus="yes">
        <source>%n key(s) of the moved bones are gone</source>
        <translation>
            <numerusform>移動したボーンのキー %n 個が失われました</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n joint(s) lost a body of the other rig</source>
        <translation>
            <numerusform>%n 個のジョイントは別のリグの剛体を失いました</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>KMBonePage</name>
    <message>
        <source>Polygon</source>
        <translation>ポリゴン</translation>
    </message>
    <message>
        <source>Point</source>
        <translation>点</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>線</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>Degrees about X first, then Y, then Z</source>
        <translation>X、Y、Z の順に回す角度(度)</translation>
    </message>
    <message>
        <source>Rotation</source>
        <translation>回転</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>長さ</translation>
    </message>
    <message>
        <source>View Type</source>
        <translation>表示方法</translation>
    </message>
    <message>
        <source>Floating</source>
        <translation>フローティング</translation>
    </message>
    <message>
        <source>The head isn&apos;t attached to the tail of the parent</source>
        <translation>根元が親の先端につながっていません</translation>
    </message>
    <message>
        <source>Movable</source>
        <translation>移動可能</translation>
    </message>
    <message>
        <source>A pose may move the bone, not only turn it</source>
        <translation>ポーズで回転だけでなく移動もできます</translation>
    </message>
    <message>
        <source>Angular Limit</source>
        <translation>角度制限</translation>
    </message>
    <message>
        <source>Enable</source>
        <translation>有効</translation>
    </message>
    <message>
        <source>Min H</source>
        <translation>最小 H</translation>
    </message>
    <message>
        <source>Max H</source>
        <translation>最大 H</translation>
    </message>
    <message>
        <source>Min P</source>
        <translation>最小 P</translation>
    </message>
    <message>
        <source>Max P</source>
        <translation>最大 P</translation>
    </message>
    <message>
        <source>Min B</source>
        <translation>最小 B</translation>
    </message>
    <message>
        <source>Max B</source>
        <translation>最大 B</translation>
    </message>
    <message>
        <source>Tags</source>
        <translation>タグ</translation>
    </message>
    <message>
        <source>None</source>
        <translation>なし</translation>
    </message>
</context>
<context>
    <name>KMBoneTargets</name>
    <message>
        <source>Select Bone</source>
        <translation>ボーンを選択</translation>
    </message>
    <message>
        <source>Unselect Bone</source>
        <translation>ボーンの選択を解除</translation>
    </message>
    <message numerus="yes">
        <source>%n bone(s) not deleted: locked or hidden</source>
        <translation>
            <numerusform>%n 個のボーンはロックまたは非表示のため削除されませんでした</numerusform>
        </translation>
    </message>
    <message>
        <source>Nothing was deleted: %1 is locked or hidden</source>
        <translation>削除されませんでした: %1 はロックまたは非表示です</translation>
    </message>
</context>
<context>
    <name>KMBoneToolPage</name>
    <message>
        <source>A drag makes a bone; from a head or a tail it goes on from there</source>
        <translation>ドラッグでボーンを作ります。ヘッドやテールから始めると、そこから続きます</translation>
    </message>
    <message>
        <source>A drag moves heads and tails, or selects an area</source>
        <translation>ドラッグでヘッドやテールを動かすか、範囲を選択します</translation>
    </message>
    <message>
        <source>Children Follow</source>
        <translation>子も動かす</translation>
    </message>
    <message>
        <source>All that hangs on a moved joint moves along, and isn&apos;t stretched</source>
        <translation>動かした関節の先にあるものは伸びずに一緒に動きます</translation>
    </message>
    <message>
        <source>Snap to Vertices</source>
        <translation>頂点にスナップ</translation>
    </message>
    <message>
        <source>Joints go to the vertex under the cursor, whatever the snap menu says</source>
        <translation>スナップメニューに関係なく、関節はカーソルの下の頂点に付きます</translation>
    </message>
    <message>
        <source>Middle of the Mesh</source>
        <translation>メッシュの中央</translation>
    </message>
    <message>
        <source>New joints go halfway through the mesh under the cursor</source>
        <translation>新しい関節はカーソルの下のメッシュの厚みの中央に置かれます</translation>
    </message>
</context>
<context>
    <name>KMBoneWeightCommand</name>
    <message>
        <source>There is no such vertex.</source>
        <translation>該当する頂点はありません。</translation>
    </message>
    <message>
        <source>No bone weighs on the selected vertices.</source>
        <translation>選択中の頂点に影響するボーンはありません。</translation>
    </message>
    <message>
        <source>Other Bone Not Found.</source>
        <translation>反対側のボーンが見つかりません。</translation>
    </message>
    <message>
        <source>Normalize</source>
        <translation>正規化</translation>
    </message>
    <message>
        <source>Bring the weights of the selected vertices to the sum 1</source>
        <translation>選択中の頂点のウェイトを合計1にします</translation>
    </message>
    <message>
        <source>Fit To Children</source>
        <translation>子に合わせる</translation>
    </message>
    <message>
        <source>Give the selected bone what its children leave of the weight at the selected vertices</source>
        <translation>選択中の頂点で、子ボーンのウェイトの残りを選択中のボーンに割り当てます</translation>
    </message>
    <message>
        <source>Set Sdef Flag</source>
        <translation>SDEFフラグを設定</translation>
    </message>
    <message>
        <source>Blend the selected vertices spherically where they have two bones</source>
        <translation>ボーンが2本の選択頂点を球面ブレンドします</translation>
    </message>
    <message>
        <source>Remove Sdef Flag</source>
        <translation>SDEFフラグを解除</translation>
    </message>
    <message>
        <source>Blend the selected vertices linearly</source>
        <translation>選択中の頂点を線形ブレンドします</translation>
    </message>
    <message>
        <source>Select Sdef Vertex</source>
        <translation>SDEF頂点を選択</translation>
    </message>
    <message>
        <source>Select the vertices that are flagged to be blended spherically</source>
        <translation>球面ブレンドのフラグが付いた頂点を選択します</translation>
    </message>
    <message>
        <source>Remove Invalid Weigt</source>
        <translation>無効なウェイトを削除</translation>
    </message>
    <message>
        <source>Delete the weights of 0 at the selected vertices</source>
        <translation>選択中の頂点のウェイト0の項目を削除します</translation>
    </message>
    <message>
        <source>Select Over Three Vertex</source>
        <translation>ボーン3本以上の頂点を選択</translation>
    </message>
    <message>
        <source>Select the vertices with three bones or more</source>
        <translation>ボーンが3本以上の頂点を選択します</translation>
    </message>
    <message>
        <source>Select Over Five Vertex</source>
        <translation>ボーン5本以上の頂点を選択</translation>
    </message>
    <message>
        <source>Select the vertices with five bones or more: one too many for PMX</source>
        <translation>ボーンが5本以上の頂点を選択します（PMXの上限を超えています）</translation>
    </message>
    <message>
        <source>Select Affected Bone</source>
        <translation>影響ボーンを選択</translation>
    </message>
    <message>
        <source>Select the bones that weigh on the selected vertices</source>
        <translation>選択中の頂点に影響するボーンを選択します</translation>
    </message>
    <message>
        <source>Select Vertex From Bone</source>
        <translation>ボーンから頂点を選択</translation>
    </message>
    <message>
        <source>Select the vertices on which the selected bones weigh</source>
        <translation>選択中のボーンが影響する頂点を選択します</translation>
    </message>
    <message>
        <source>Erase From Selected Vertex</source>
        <translation>選択頂点から消去</translation>
    </message>
    <message>
        <source>Delete all weights of the selected vertices</source>
        <translation>選択中の頂点のウェイトをすべて削除します</translation>
    </message>
    <message>
        <source>Select White Vertex</source>
        <translation>ウェイトのない頂点を選択</translation>
    </message>
    <message>
        <source>Select the vertices without any weight</source>
        <translation>ウェイトのない頂点を選択します</translation>
    </message>
    <message>
        <source>Tranefer</source>
        <translation>転写</translation>
    </message>
    <message>
        <source>Give the selected vertices of the current mesh the weights of the other selected meshes</source>
        <translation>選択中の他のメッシュのウェイトを、現在のメッシュの選択頂点に転写します</translation>
    </message>
    <message>
        <source>Blur</source>
        <translation>ぼかし</translation>
    </message>
    <message>
        <source>Mix the weights of the selected vertices with those of their neighbours</source>
        <translation>選択中の頂点のウェイトを隣の頂点とならします</translation>
    </message>
    <message>
        <source>Transfer As Other</source>
        <translation>反対側へ移す</translation>
    </message>
    <message>
        <source>Move the weights that the selected bone has at the selected vertices to the bone on the other side</source>
        <translation>選択頂点での選択ボーンのウェイトを、反対側のボーンに移します</translation>
    </message>
    <message>
        <source>Enable All BoneMod</source>
        <translation>ボーン変形をすべて有効</translation>
    </message>
    <message>
        <source>Switch on all modifiers that deform meshes by bones</source>
        <translation>ボーンによる変形モディファイアをすべて有効にします</translation>
    </message>
    <message>
        <source>Disable All BoneMod</source>
        <translation>ボーン変形をすべて無効</translation>
    </message>
    <message>
        <source>Switch off all modifiers that deform meshes by bones</source>
        <translation>ボーンによる変形モディファイアをすべて無効にします</translation>
    </message>
    <message>
        <source>BoneWeightComDebugOut</source>
        <translation>BoneWeightComDebugOut</translation>
    </message>
    <message>
        <source>Write the weights of all vertices to the log</source>
        <translation>すべての頂点のウェイトをログに書き出します</translation>
    </message>
    <message>
        <source>BoneWeightComTest</source>
        <translation>BoneWeightComTest</translation>
    </message>
    <message>
        <source>Does nothing: for those who work on the program</source>
        <translation>何もしません（プログラムの開発者用）</translation>
    </message>
    <message>
        <source>Mesh Selection not found.</source>
        <translation>選択中のメッシュがありません。</translation>
    </message>
    <message>
        <source>%1 is locked.</source>
        <translation>%1 はロックされています。</translation>
    </message>
    <message>
        <source>BoneWeightTag not found.</source>
        <translation>ボーンウェイトタグがありません。</translation>
    </message>
    <message>
        <source>Vertex Selection not found.</source>
        <translation>選択中の頂点がありません。</translation>
    </message>
    <message>
        <source>Bone Selection not found.</source>
        <translation>選択中のボーンがありません。</translation>
    </message>
    <message>
        <source>There is nothing to change.</source>
        <translation>変更するものがありません。</translation>
    </message>
</context>
<context>
    <name>KMBoneWeightPage</name>
    <message>
        <source>Add the value to the weights of the bone</source>
        <translation>ボーンのウェイトに値を加えます</translation>
    </message>
    <message>
        <source>Take the value off the weights of the bone</source>
        <translation>ボーンのウェイトから値を引きます</translation>
    </message>
    <message>
        <source>Bring the weights of the bone to the value</source>
        <translation>ボーンのウェイトを値に近づけます</translation>
    </message>
    <message>
        <source>Even out the weights of the bone; with Shift in every mode</source>
        <translation>ボーンのウェイトをならします（どのモードでもShiftで使えます）</translation>
    </message>
    <message>
        <source>Take the bone off the vertices</source>
        <translation>頂点からボーンのウェイトを消します</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>値</translation>
    </message>
    <message>
        <source>What is added, taken off or set: 0 to 1</source>
        <translation>加える、引く、または設定する値（0～1）</translation>
    </message>
    <message>
        <source>Radius</source>
        <translation>半径</translation>
    </message>
    <message>
        <source>Of the brush, in pixels; the keys [ and ] change it as well</source>
        <translation>ブラシの半径（ピクセル）。キー [ と ] でも変えられます</translation>
    </message>
    <message>
        <source>Strength</source>
        <translation>強さ</translation>
    </message>
    <message>
        <source>How much of it a stroke does: 0 to 1</source>
        <translation>1ストロークで効く割合（0～1）</translation>
    </message>
    <message>
        <source>Pen Strength</source>
        <translation>筆圧で強さを変える</translation>
    </message>
    <message>
        <source>A pen that presses less paints less</source>
        <translation>筆圧が弱いほど薄く塗ります</translation>
    </message>
    <message>
        <source>Pen Radius</source>
        <translation>筆圧で半径を変える</translation>
    </message>
    <message>
        <source>A pen that presses less paints narrower</source>
        <translation>筆圧が弱いほど細く塗ります</translation>
    </message>
    <message>
        <source>Normalize</source>
        <translation>正規化</translation>
    </message>
    <message>
        <source>The other bones of a vertex give way, so that its weights come to 1</source>
        <translation>頂点のウェイトの合計が1になるよう、ほかのボーンのウェイトを調整します</translation>
    </message>
    <message>
        <source>Front Only</source>
        <translation>表面のみ</translation>
    </message>
    <message>
        <source>Vertices that a surface hides aren&apos;t painted</source>
        <translation>面に隠れた頂点は塗りません</translation>
    </message>
    <message>
        <source>Linear</source>
        <translation>線形</translation>
    </message>
    <message>
        <source>Smooth</source>
        <translation>なめらか</translation>
    </message>
    <message>
        <source>Constant</source>
        <translation>一定</translation>
    </message>
    <message>
        <source>How the brush weakens towards its rim</source>
        <translation>ブラシの縁に向かう弱まり方</translation>
    </message>
    <message>
        <source>Falloff</source>
        <translation>減衰</translation>
    </message>
    <message>
        <source>The bone that is painted; in a view it is chosen by a click with Ctrl</source>
        <translation>塗るボーン。ビューではCtrl+クリックで選べます</translation>
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
    <name>KMCameraNode</name>
    <message>
        <source>Perspective View</source>
        <translation>透視ビュー</translation>
    </message>
    <message>
        <source>Ortho View</source>
        <translation>平行投影ビュー</translation>
    </message>
    <message>
        <source>Top View</source>
        <translation>上面ビュー</translation>
    </message>
    <message>
        <source>Front View</source>
        <translation>正面ビュー</translation>
    </message>
    <message>
        <source>Back View</source>
        <translation>背面ビュー</translation>
    </message>
    <message>
        <source>Right View</source>
        <translation>右面ビュー</translation>
    </message>
    <message>
        <source>Left View</source>
        <translation>左面ビュー</translation>
    </message>
    <message>
        <source>UV View</source>
        <translation>UV ビュー</translation>
    </message>
    <message>
        <source>FOV</source>
        <translation>視野角</translation>
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
    <name>KMConstraintTagPage</name>
    <message>
        <source>NULL</source>
        <translation>なし</translation>
    </message>
    <message>
        <source>Translate</source>
        <translation>移動</translation>
    </message>
    <message>
        <source>Rotate</source>
        <translation>回転</translation>
    </message>
    <message>
        <source>Trans+Rot</source>
        <translation>移動+回転</translation>
    </message>
    <message>
        <source>IK</source>
        <translation>IK</translation>
    </message>
    <message>
        <source>Twist</source>
        <translation>ねじり</translation>
    </message>
    <message>
        <source>Constraint</source>
        <translation>コンストレイント</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>種類</translation>
    </message>
    <message>
        <source>None</source>
        <translation>なし</translation>
    </message>
    <message>
        <source>Target</source>
        <translation>ターゲット</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>値</translation>
    </message>
    <message>
        <source>The share that is taken over; for IK the degrees of a step</source>
        <translation>受け継ぐ割合。IK では 1 回あたりの角度(度)</translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>ループ</translation>
    </message>
    <message>
        <source>IK Hierarchy</source>
        <translation>IK 階層</translation>
    </message>
    <message>
        <source>Links of the chain</source>
        <translation>チェーンのリンク数</translation>
    </message>
</context>
<context>
    <name>KMCreaseEdit</name>
    <message>
        <source>Set Weight</source>
        <translation>ウェイトを設定</translation>
    </message>
</context>
<context>
    <name>KMCustomPanel</name>
    <message>
        <source>Open what the custom panel holds as a menu at the cursor</source>
        <translation>カスタムパネルの内容をカーソル位置にメニューとして開く</translation>
    </message>
    <message>
        <source>Show or hide the custom panel; a right click on it chooses its buttons</source>
        <translation>カスタムパネルを表示または隠す。パネルの右クリックでボタンを選ぶ</translation>
    </message>
    <message>
        <source>Custom Panel%1</source>
        <translation>カスタムパネル%1</translation>
    </message>
    <message>
        <source>Show %1</source>
        <translation>%1を表示</translation>
    </message>
    <message>
        <source>Show Panel%1</source>
        <translation>パネル%1を表示</translation>
    </message>
    <message>
        <source>Choose Buttons...</source>
        <translation>ボタンの選択...</translation>
    </message>
    <message>
        <source>Say which commands stand on this panel</source>
        <translation>このパネルに置くコマンドを選ぶ</translation>
    </message>
</context>
<context>
    <name>KMDAnchorBody</name>
    <message>
        <source>The file has more anchors than it can be believed to hold</source>
        <translation>ファイルのアンカーの数が多すぎて信用できません</translation>
    </message>
    <message>
        <source>%1 faces of the anchor %2 were left out: they have too few or too many corners, or such that it doesn&apos;t have</source>
        <translation>アンカー %2 の %1 個の面を省きました。頂点が少なすぎるか多すぎるか、存在しない頂点が指定されています</translation>
    </message>
    <message>
        <source>The anchor %1 is of a bone that the file doesn&apos;t have</source>
        <translation>アンカー %1 のボーンがファイルにありません</translation>
    </message>
</context>
<context>
    <name>KMDBoneContainerBody</name>
    <message>
        <source>The scale makes the bone %1 endless; it keeps its length</source>
        <translation>倍率によりボーン %1 の長さが数で表せなくなるため、元の長さのままにしました</translation>
    </message>
    <message>
        <source>The bone %1 has the unknown view type %2</source>
        <translation>ボーン %1 の表示方法 %2 は不明です</translation>
    </message>
    <message>
        <source>A record of type 0x%1 is no bone</source>
        <translation>種類 0x%1 のレコードはボーンではありません</translation>
    </message>
    <message>
        <source>The file has more bones than it can be believed to hold</source>
        <translation>ファイルのボーンの数が多すぎます</translation>
    </message>
    <message>
        <source>The bone %1 names an unknown parent and was put at the top</source>
        <translation>ボーン %1 の親が不明なため、最上位に置きました</translation>
    </message>
    <message>
        <source>The bone %1 stands below itself and was put at the top</source>
        <translation>ボーン %1 が自分自身の配下にあるため、最上位に置きました</translation>
    </message>
    <message>
        <source>A bone lies too deep in its rig and was moved up</source>
        <translation>ボーンの階層が深すぎるため、上へ移しました</translation>
    </message>
</context>
<context>
    <name>KMDBoneKeys</name>
    <message>
        <source>The keys of %1 were left out: there is no such bone</source>
        <translation>%1 のキーを省きました: そのボーンがありません</translation>
    </message>
</context>
<context>
    <name>KMDDisplayBlock</name>
    <message>
        <source>display groups</source>
        <translation>表示枠</translation>
    </message>
    <message>
        <source>%1 items of the display group %2 aren&apos;t in the file</source>
        <translation>表示枠 %2 の項目のうち %1 個がファイルにありません</translation>
    </message>
</context>
<context>
    <name>KMDMeshBody</name>
    <message>
        <source>A face of %1 corners can&apos;t be</source>
        <translation>%1 個の角を持つ面はありえません</translation>
    </message>
    <message>
        <source>A face at the vertex %1, which the mesh doesn&apos;t have, was left out</source>
        <translation>メッシュにない頂点 %1 を使う面は省かれました</translation>
    </message>
    <message>
        <source>An edge between the vertices %1 and %2, which the mesh doesn&apos;t have</source>
        <translation>メッシュにない頂点 %1 と %2 の間の辺です</translation>
    </message>
</context>
<context>
    <name>KMDMorphTag</name>
    <message>
        <source>A morph of the vertex %1, which the mesh doesn&apos;t have</source>
        <translation>メッシュにない頂点 %1 のモーフです</translation>
    </message>
</context>
<context>
    <name>KMDNormalTag</name>
    <message>
        <source>An odd number of crease ends, %1</source>
        <translation>折り目の端の数 %1 が奇数です</translation>
    </message>
    <message>
        <source>A crease between the vertices %1 and %2, which the mesh doesn&apos;t have</source>
        <translation>メッシュにない頂点 %1 と %2 の間の折り目です</translation>
    </message>
    <message>
        <source>Normals of the face %1, which the mesh doesn&apos;t have</source>
        <translation>メッシュにない面 %1 の法線です</translation>
    </message>
</context>
<context>
    <name>KMDPhysicsTags</name>
    <message>
        <source>The rigid body %1 has the unknown kind %2</source>
        <translation>剛体 %1 の種類 %2 は不明です</translation>
    </message>
    <message>
        <source>The scale makes the rigid body %1 endless; it keeps its size</source>
        <translation>倍率により剛体 %1 が無限大になるため、大きさはそのままです</translation>
    </message>
</context>
<context>
    <name>KMDReadContext</name>
    <message>
        <source>%1 stays without its shape of %2 faces, which are too many for a file of this size; a change of its settings makes it</source>
        <translation>%1 の面 %2 枚はこの大きさのファイルには多すぎるため、形を作りませんでした。設定を変えると作られます</translation>
    </message>
    <message>
        <source>The file of the SVG shape %1 has no place in the file</source>
        <translation>SVG 形状 %1 のファイルは、このファイルには保存できません</translation>
    </message>
    <message>
        <source>An SVG shape comes without its name and its drawing</source>
        <translation>SVG 形状は名前と図なしで読み込まれます</translation>
    </message>
    <message>
        <source>The scale moves a point out of all numbers; it was put at the origin</source>
        <translation>スケールにより座標が表せる範囲を超えた点を原点に置きました</translation>
    </message>
    <message>
        <source>The power of %1 has no place in the file</source>
        <translation>%1 の強さはこのファイルに保存できません</translation>
    </message>
</context>
<context>
    <name>KMDReader</name>
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
    <message>
        <source>The node %1 was left out: this release has none of its kind, %2</source>
        <translation>ノード %1 は省かれました。この版にはその種類がありません: %2</translation>
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
    <name>KMDShelfBlocks</name>
    <message>
        <source>The picture of the texture %1 is damaged</source>
        <translation>テクスチャ %1 の画像が壊れています</translation>
    </message>
    <message>
        <source>The texture %1 is of an unknown kind and was left out</source>
        <translation>テクスチャ %1 は未知の種類のため省かれました</translation>
    </message>
    <message>
        <source>The shader %1 is of an unknown kind and became a basic one</source>
        <translation>シェーダー %1 は未知の種類のため基本シェーダーになりました</translation>
    </message>
    <message>
        <source>textures</source>
        <translation>テクスチャ</translation>
    </message>
    <message>
        <source>shaders</source>
        <translation>シェーダー</translation>
    </message>
</context>
<context>
    <name>KMDSmallTags</name>
    <message>
        <source>%1 elements of a remembered selection aren&apos;t in the mesh</source>
        <translation>記憶した選択のうち %1 個の要素がメッシュにありません</translation>
    </message>
    <message>
        <source>The number of the tag %1 has no place in the file</source>
        <translation>タグ %1 の数値はファイルに保存できません</translation>
    </message>
    <message>
        <source>The group tag %1 has the unknown mode %2</source>
        <translation>グループタグ %1 のモード %2 は不明です</translation>
    </message>
</context>
<context>
    <name>KMDStream</name>
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
    <message>
        <source>The file can&apos;t be read: %1</source>
        <translation>ファイルを読み込めません: %1</translation>
    </message>
</context>
<context>
    <name>KMDTagBodies</name>
    <message>
        <source>The tag %1 of %2 has no place in the file</source>
        <translation>%2 のタグ %1 はファイルに保存できません</translation>
    </message>
    <message>
        <source>A tag of the unknown type 0x%1</source>
        <translation>未知の種類 0x%1 のタグです</translation>
    </message>
    <message>
        <source>The tag %1 of %2 was left out: it has enough of this kind</source>
        <translation>%2 のタグ %1 は省かれました。同じ種類がすでにあります</translation>
    </message>
    <message>
        <source>The tag %1 of %2 was left out: this release has none of its kind, %3</source>
        <translation>%2 のタグ %1 は省かれました。この版にはその種類がありません: %3</translation>
    </message>
    <message>
        <source>The tag %1 was left out: %2 can&apos;t hold it</source>
        <translation>タグ %1 を省きました: %2 には付けられません</translation>
    </message>
</context>
<context>
    <name>KMDViewBlocks</name>
    <message>
        <source>A camera of the unknown type %1</source>
        <translation>未知の種類 %1 のカメラです</translation>
    </message>
    <message>
        <source>view settings</source>
        <translation>表示設定</translation>
    </message>
    <message>
        <source>cameras</source>
        <translation>カメラ</translation>
    </message>
    <message>
        <source>views</source>
        <translation>ビュー</translation>
    </message>
</context>
<context>
    <name>KMDWeightTag</name>
    <message>
        <source>%1 weights of vertices that the mesh doesn&apos;t have</source>
        <translation>メッシュにない頂点のウェイト %1 個</translation>
    </message>
    <message>
        <source>%1 weights of bones that the file doesn&apos;t have</source>
        <translation>ファイルにないボーンのウェイト %1 個</translation>
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
    <name>KMDisplayAnchorNode</name>
    <message>
        <source>AnchorDisp</source>
        <translation>アンカー表示</translation>
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
    <name>KMDisplayNode</name>
    <message>
        <source>Disp</source>
        <translation>表示枠</translation>
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
    <name>KMElementClick</name>
    <message>
        <source>%1 makes its shape from its settings: only meshes can be edited.</source>
        <translation>%1 の形状は設定から作られます。編集できるのはメッシュだけです。</translation>
    </message>
</context>
<context>
    <name>KMElementErase</name>
    <message>
        <source>Delete Vertex</source>
        <translation>頂点の削除</translation>
    </message>
    <message>
        <source>Delete Edge</source>
        <translation>辺の削除</translation>
    </message>
    <message>
        <source>Delete Face</source>
        <translation>面の削除</translation>
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
    <name>KMEnvToolBar</name>
    <message>
        <source>Vertex</source>
        <translation>頂点</translation>
    </message>
    <message>
        <source>The mouse reaches vertices</source>
        <translation>マウスで頂点を操作します</translation>
    </message>
    <message>
        <source>Edge</source>
        <translation>辺</translation>
    </message>
    <message>
        <source>The mouse reaches edges</source>
        <translation>マウスで辺を操作します</translation>
    </message>
    <message>
        <source>Face</source>
        <translation>面</translation>
    </message>
    <message>
        <source>The mouse reaches faces</source>
        <translation>マウスで面を操作します</translation>
    </message>
    <message>
        <source>Symmetry</source>
        <translation>対称</translation>
    </message>
    <message>
        <source>What lies opposite in the mesh is edited along</source>
        <translation>メッシュの反対側も同時に編集します</translation>
    </message>
    <message>
        <source>Square Select</source>
        <translation>矩形選択</translation>
    </message>
    <message>
        <source>A drag over empty space selects by a rectangle</source>
        <translation>何もない所をドラッグすると矩形で選択します</translation>
    </message>
    <message>
        <source>Brush Select</source>
        <translation>ブラシ選択</translation>
    </message>
    <message>
        <source>A drag over empty space selects what the brush touches</source>
        <translation>何もない所をドラッグするとブラシが触れたものを選択します</translation>
    </message>
    <message>
        <source>Lasso Select</source>
        <translation>投げ縄選択</translation>
    </message>
    <message>
        <source>A drag over empty space selects what it encloses</source>
        <translation>何もない所をドラッグすると囲んだものを選択します</translation>
    </message>
    <message>
        <source>Operation Panel</source>
        <translation>操作パネル</translation>
    </message>
    <message>
        <source>Show or hide the buttons that say what the mouse works on</source>
        <translation>マウスの操作対象を選ぶボタンの表示を切り替えます</translation>
    </message>
</context>
<context>
    <name>KMExtrudePage</name>
    <message>
        <source>Along the normals, in place of the faces</source>
        <translation>法線に沿って押し出し、元の面を置き換えます</translation>
    </message>
    <message>
        <source>In the plane of the faces, inward from their border</source>
        <translation>面の平面内で、境界から内側へ押し出します</translation>
    </message>
    <message>
        <source>Along the normals; the faces stay as the other side of a wall</source>
        <translation>法線に沿って押し出し、元の面を壁の反対側として残します</translation>
    </message>
    <message>
        <source>The faces themselves move along the normals</source>
        <translation>面そのものを法線に沿って移動します</translation>
    </message>
    <message>
        <source>Per Faces</source>
        <translation>面ごと</translation>
    </message>
    <message>
        <source>Each face is extruded alone, not with its neighbours</source>
        <translation>隣の面とまとめずに、面を 1 つずつ押し出します</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>値</translation>
    </message>
    <message>
        <source>Write the preview to the mesh</source>
        <translation>プレビューをメッシュに書き込みます</translation>
    </message>
</context>
<context>
    <name>KMExtrusion</name>
    <message>
        <source>Move</source>
        <translation>移動</translation>
    </message>
    <message>
        <source>Extrude</source>
        <translation>押し出し</translation>
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
    <message>
        <source>Reload</source>
        <translation>再読み込み</translation>
    </message>
    <message>
        <source>Reads the file again after another program has changed it</source>
        <translation>ほかのプログラムが変更したファイルを読み直します</translation>
    </message>
</context>
<context>
    <name>KMFitFFD</name>
    <message>
        <source>Please Select FFDNode.</source>
        <translation>FFD ノードを選択してください。</translation>
    </message>
    <message>
        <source>Please insert FFDNode in as a MeshNode child.</source>
        <translation>FFD ノードをメッシュノードの子に入れてください。</translation>
    </message>
    <message>
        <source>Fit FFD</source>
        <translation>FFD を合わせる</translation>
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
    <name>KMFreezeModifiers</name>
    <message>
        <source>mesh modifiers count zero.</source>
        <translation>メッシュにモディファイアがありません。</translation>
    </message>
    <message>
        <source>Modifiers not found.</source>
        <translation>モディファイアが見つかりません。</translation>
    </message>
    <message>
        <source>ModMesh not found.</source>
        <translation>モディファイアの結果が見つかりません。</translation>
    </message>
    <message>
        <source>invald items.</source>
        <translation>項目が正しくありません。</translation>
    </message>
    <message>
        <source>faled mesh freeze.</source>
        <translation>メッシュをフリーズできませんでした。</translation>
    </message>
    <message>
        <source>Freezed.</source>
        <translation>フリーズしました。</translation>
    </message>
    <message>
        <source>Freeze Modifiier</source>
        <translation>モディファイアをフリーズ</translation>
    </message>
</context>
<context>
    <name>KMGridNode</name>
    <message>
        <source>Grid</source>
        <translation>グリッド</translation>
    </message>
</context>
<context>
    <name>KMHandleDrag</name>
    <message>
        <source>Rotate</source>
        <translation>回転</translation>
    </message>
</context>
<context>
    <name>KMHelpWidget</name>
    <message>
        <source>Right drag</source>
        <translation>右ドラッグ</translation>
    </message>
    <message>
        <source>Turn the view; with Shift in steps</source>
        <translation>ビューの回転。Shiftで一定角度ごと</translation>
    </message>
    <message>
        <source>Middle drag</source>
        <translation>中ドラッグ</translation>
    </message>
    <message>
        <source>Move the view</source>
        <translation>ビューの移動</translation>
    </message>
    <message>
        <source>Right and left drag</source>
        <translation>右と左を押してドラッグ</translation>
    </message>
    <message>
        <source>Zoom; with Shift by the angle of the lens</source>
        <translation>ズーム。Shiftで画角による拡大縮小</translation>
    </message>
    <message>
        <source>Shift and middle drag</source>
        <translation>Shift+中ドラッグ</translation>
    </message>
    <message>
        <source>Change the angle of the lens, while the model keeps its size</source>
        <translation>モデルの大きさを保ったまま画角を変える</translation>
    </message>
    <message>
        <source>Wheel</source>
        <translation>ホイール</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>ズーム</translation>
    </message>
    <message>
        <source>Drag on an icon in the upper right corner</source>
        <translation>右上のアイコンをドラッグ</translation>
    </message>
    <message>
        <source>Move, zoom or turn the view with one button</source>
        <translation>ボタン一つでビューの移動、ズーム、回転</translation>
    </message>
    <message>
        <source>Click on the camera box</source>
        <translation>カメラボックスをクリック</translation>
    </message>
    <message>
        <source>Look from that side, edge or corner</source>
        <translation>その面、辺、角の方向から見る</translation>
    </message>
    <message>
        <source>Drag on the ring of the camera box</source>
        <translation>カメラボックスの輪をドラッグ</translation>
    </message>
    <message>
        <source>Turn the view</source>
        <translation>ビューの回転</translation>
    </message>
    <message>
        <source>Middle click on the camera box</source>
        <translation>カメラボックスを中クリック</translation>
    </message>
    <message>
        <source>Bring the current node to the middle of the view</source>
        <translation>現在のノードをビューの中央にする</translation>
    </message>
    <message>
        <source>Right click on the buttons for vertices, edges and faces</source>
        <translation>頂点、辺、面のボタンを右クリック</translation>
    </message>
    <message>
        <source>Show that kind of elements alone, and all of them at the next click</source>
        <translation>その種類の要素だけを表示。もう一度ですべて表示</translation>
    </message>
    <message>
        <source>Right click on a panel of buttons</source>
        <translation>ボタンのパネルを右クリック</translation>
    </message>
    <message>
        <source>Choose between icons and texts, and what stands on a custom panel</source>
        <translation>アイコンと文字の切り替え、カスタムパネルの内容の選択</translation>
    </message>
    <message>
        <source>Drop a file on the window</source>
        <translation>ファイルをウィンドウにドロップ</translation>
    </message>
    <message>
        <source>Open a model, add a picture as a texture</source>
        <translation>モデルを開く、画像をテクスチャとして追加</translation>
    </message>
    <message>
        <source>Drop a shader or a texture on a face</source>
        <translation>シェーダーやテクスチャを面にドロップ</translation>
    </message>
    <message>
        <source>Give it to the face</source>
        <translation>その面に割り当てる</translation>
    </message>
    <message>
        <source>Keys and Mouse</source>
        <translation>キーとマウス</translation>
    </message>
    <message>
        <source>Filter by name or keys</source>
        <translation>名前またはキーで絞り込み</translation>
    </message>
    <message>
        <source>Nothing of that name.</source>
        <translation>該当するものはありません。</translation>
    </message>
    <message>
        <source>Mouse</source>
        <translation>マウス</translation>
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
    <name>KMInputFile</name>
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
        <source>The file is too large: %1 bytes</source>
        <translation>ファイルが大きすぎます: %1 バイト</translation>
    </message>
    <message>
        <source>The file can&apos;t be opened: %1</source>
        <translation>ファイルを開けません: %1</translation>
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
    <name>KMJointPage</name>
    <message>
        <source>Joint</source>
        <translation>ジョイント</translation>
    </message>
    <message>
        <source>Connection A</source>
        <translation>接続 A</translation>
    </message>
    <message>
        <source>Connection B</source>
        <translation>接続 B</translation>
    </message>
    <message>
        <source>Linear Limit</source>
        <translation>移動制限</translation>
    </message>
    <message>
        <source>Angular Limit</source>
        <translation>回転制限</translation>
    </message>
    <message>
        <source>Sping</source>
        <translation>ばね</translation>
    </message>
    <message>
        <source>Linear Damping</source>
        <translation>移動減衰</translation>
    </message>
    <message>
        <source>Angular Damping</source>
        <translation>回転減衰</translation>
    </message>
    <message>
        <source>None</source>
        <translation>なし</translation>
    </message>
    <message>
        <source>Min</source>
        <translation>最小</translation>
    </message>
    <message>
        <source>Max</source>
        <translation>最大</translation>
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
    <name>KMMeshPage</name>
    <message>
        <source>Mesh</source>
        <translation>メッシュ</translation>
    </message>
    <message>
        <source>Smooth angle</source>
        <translation>スムーズ角度</translation>
    </message>
    <message>
        <source>Faces that meet at a smaller angle are shaded as one surface</source>
        <translation>これより小さい角度で接する面を、ひと続きの面として陰影付けします</translation>
    </message>
    <message>
        <source>Frame only</source>
        <translation>軸のみ</translation>
    </message>
    <message>
        <source>Moves the axes and the symmetry plane of the mesh and leaves the vertices where they are</source>
        <translation>メッシュの軸と対称面だけを動かし、頂点はそのままにします</translation>
    </message>
    <message>
        <source>Vertices</source>
        <translation>頂点</translation>
    </message>
    <message>
        <source>Edges</source>
        <translation>辺</translation>
    </message>
    <message>
        <source>Faces</source>
        <translation>面</translation>
    </message>
    <message>
        <source>Triangles</source>
        <translation>三角形</translation>
    </message>
    <message>
        <source>Modifiers</source>
        <translation>モディファイア</translation>
    </message>
    <message>
        <source>Edit MeshNode</source>
        <translation>メッシュノードの編集</translation>
    </message>
    <message>
        <source>None</source>
        <translation>なし</translation>
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
        <translation>すべての UV を選択解除</translation>
    </message>
</context>
<context>
    <name>KMMessageBox</name>
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
    <name>KMModAnchorNode</name>
    <message>
        <source>Anchor</source>
        <translation>アンカー</translation>
    </message>
</context>
<context>
    <name>KMModAnchorPage</name>
    <message>
        <source>AnchorNode</source>
        <translation>アンカーノード</translation>
    </message>
    <message>
        <source>Calc Method</source>
        <translation>計算方法</translation>
    </message>
    <message>
        <source>Nearest face</source>
        <translation>最も近い面</translation>
    </message>
    <message>
        <source>All faces in range</source>
        <translation>範囲内のすべての面</translation>
    </message>
    <message>
        <source>OverWrite</source>
        <translation>上書き</translation>
    </message>
    <message>
        <source>The bones whose helpers weigh the mesh; a right click adds bones</source>
        <translation>補助形状でメッシュにウェイトを付けるボーンです。右クリックでボーンを追加します</translation>
    </message>
    <message>
        <source>Relations</source>
        <translation>関連付け</translation>
    </message>
    <message>
        <source>Add Current Bone</source>
        <translation>現在のボーンを追加</translation>
    </message>
    <message>
        <source>Put a helper around the current bone</source>
        <translation>現在のボーンの周りに補助形状を置きます</translation>
    </message>
    <message>
        <source>Add Selected Bones</source>
        <translation>選択したボーンを追加</translation>
    </message>
    <message>
        <source>Put a helper around each selected bone</source>
        <translation>選択した各ボーンの周りに補助形状を置きます</translation>
    </message>
    <message>
        <source>Fit to Bone</source>
        <translation>ボーンに合わせる</translation>
    </message>
    <message>
        <source>Put new helpers around the chosen bones, as these stand now</source>
        <translation>選んだボーンの現在の位置に合わせて補助形状を置き直します</translation>
    </message>
    <message>
        <source>%1 has no bone weight tag here: the anchor does nothing</source>
        <translation>%1 にはここにボーンウェイトタグがないため、アンカーは何もしません</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>取り除く</translation>
    </message>
    <message>
        <source>Remove the helpers of the chosen bones</source>
        <translation>選んだボーンの補助形状を取り除きます</translation>
    </message>
    <message>
        <source>The anchor stands behind %1 and does nothing: move it before that</source>
        <translation>アンカーは %1 の後ろにあり、効果がありません。その前に移動してください</translation>
    </message>
</context>
<context>
    <name>KMModBoneDeformNode</name>
    <message>
        <source>BoneDeform</source>
        <translation>ボーンデフォーム</translation>
    </message>
</context>
<context>
    <name>KMModBoneDeformPage</name>
    <message>
        <source>BoneDeformNode</source>
        <translation>ボーンデフォームノード</translation>
    </message>
</context>
<context>
    <name>KMModClonerNode</name>
    <message>
        <source>Cloner</source>
        <translation>クローナー</translation>
    </message>
    <message>
        <source>Steps</source>
        <translation>ステップ</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>線</translation>
    </message>
    <message>
        <source>Circle</source>
        <translation>円</translation>
    </message>
    <message>
        <source>Grid</source>
        <translation>グリッド</translation>
    </message>
    <message>
        <source>Spiral</source>
        <translation>らせん</translation>
    </message>
</context>
<context>
    <name>KMModClonerPage</name>
    <message>
        <source>ClonerNode</source>
        <translation>クローナーノード</translation>
    </message>
    <message>
        <source>Count</source>
        <translation>個数</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>モード</translation>
    </message>
    <message>
        <source>Move %1</source>
        <translation>移動 %1</translation>
    </message>
    <message>
        <source>Rotate %1</source>
        <translation>回転 %1</translation>
    </message>
    <message>
        <source>Scale %1</source>
        <translation>拡大 %1</translation>
    </message>
</context>
<context>
    <name>KMModFFDNode</name>
    <message>
        <source>FFD</source>
        <translation>FFD</translation>
    </message>
    <message>
        <source>%1 would have %2 control points; the limit is %3</source>
        <translation>%1 の制御点は %2 個になります。上限は %3 個です</translation>
    </message>
</context>
<context>
    <name>KMModFFDPage</name>
    <message>
        <source>FFDNode</source>
        <translation>FFD ノード</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>幅</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>高さ</translation>
    </message>
    <message>
        <source>Depth</source>
        <translation>奥行き</translation>
    </message>
    <message>
        <source>Power</source>
        <translation>強さ</translation>
    </message>
    <message>
        <source>Points %1</source>
        <translation>制御点 %1</translation>
    </message>
</context>
<context>
    <name>KMModPipeNode</name>
    <message>
        <source>Pipe</source>
        <translation>パイプ</translation>
    </message>
    <message>
        <source>Mitre</source>
        <translation>留め継ぎ</translation>
    </message>
    <message>
        <source>Bisector</source>
        <translation>二等分</translation>
    </message>
    <message>
        <source>Blended Mitre</source>
        <translation>混合した留め継ぎ</translation>
    </message>
    <message>
        <source>Taper</source>
        <translation>先細り</translation>
    </message>
</context>
<context>
    <name>KMModPipePage</name>
    <message>
        <source>PipeNode</source>
        <translation>パイプノード</translation>
    </message>
    <message>
        <source>Radius</source>
        <translation>半径</translation>
    </message>
    <message>
        <source>Sectors</source>
        <translation>セクター数</translation>
    </message>
    <message>
        <source>Offset</source>
        <translation>オフセット</translation>
    </message>
    <message>
        <source>Blend</source>
        <translation>混合</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>モード</translation>
    </message>
    <message>
        <source>Fill Cap</source>
        <translation>端をふさぐ</translation>
    </message>
</context>
<context>
    <name>KMModSdvNode</name>
    <message>
        <source>Subdivision</source>
        <translation>サブディビジョン</translation>
    </message>
    <message>
        <source>Far::TopologyRefinerFactory::Create failed.</source>
        <translation>Far::TopologyRefinerFactory::Create failed.</translation>
    </message>
</context>
<context>
    <name>KMModSdvPage</name>
    <message>
        <source>SubdivisionNode</source>
        <translation>サブディビジョンノード</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>レベル</translation>
    </message>
    <message>
        <source>Smooth Tri</source>
        <translation>三角形を滑らかに</translation>
    </message>
    <message>
        <source>Interpolaion</source>
        <translation>補間</translation>
    </message>
    <message>
        <source>Smooth everywhere</source>
        <translation>すべて滑らか</translation>
    </message>
    <message>
        <source>Corners stay</source>
        <translation>角を保つ</translation>
    </message>
    <message>
        <source>Corners and junctions stay</source>
        <translation>角と分岐を保つ</translation>
    </message>
    <message>
        <source>Corners, junctions and darts stay</source>
        <translation>角と分岐と切れ込みを保つ</translation>
    </message>
    <message>
        <source>Borders stay</source>
        <translation>境界を保つ</translation>
    </message>
    <message>
        <source>Linear</source>
        <translation>線形</translation>
    </message>
    <message>
        <source>Subdiv Tag</source>
        <translation>タグも分割</translation>
    </message>
</context>
<context>
    <name>KMModSolidNode</name>
    <message>
        <source>Solidify</source>
        <translation>厚み付け</translation>
    </message>
</context>
<context>
    <name>KMModSolidPage</name>
    <message>
        <source>SolidifyNode</source>
        <translation>厚み付けノード</translation>
    </message>
    <message>
        <source>Thickeness</source>
        <translation>厚さ</translation>
    </message>
</context>
<context>
    <name>KMModSymNode</name>
    <message>
        <source>Symmetry</source>
        <translation>対称</translation>
    </message>
</context>
<context>
    <name>KMModSymPage</name>
    <message>
        <source>SymmetryNode</source>
        <translation>対称ノード</translation>
    </message>
    <message>
        <source>Margin</source>
        <translation>許容範囲</translation>
    </message>
    <message>
        <source>Symmety Axis</source>
        <translation>対称軸</translation>
    </message>
    <message>
        <source>Crossing</source>
        <translation>交差</translation>
    </message>
</context>
<context>
    <name>KMModifierPage</name>
    <message>
        <source>The mesh above it in the tree, as long as the modifier is switched on</source>
        <translation>モディファイアが有効な間、ツリーで上にあるメッシュ</translation>
    </message>
    <message>
        <source>Root Mesh</source>
        <translation>元のメッシュ</translation>
    </message>
    <message>
        <source>None</source>
        <translation>なし</translation>
    </message>
</context>
<context>
    <name>KMMorph</name>
    <message>
        <source>Morph</source>
        <translation>モーフ</translation>
    </message>
</context>
<context>
    <name>KMMorphBake</name>
    <message>
        <source>The morph %1 was dropped: the modifiers make other vertices under it</source>
        <translation>モーフ %1 は除かれました。モディファイアで頂点が変わるためです</translation>
    </message>
</context>
<context>
    <name>KMMorphCommand</name>
    <message>
        <source>Assign MorphNode</source>
        <translation>モーフを登録</translation>
    </message>
    <message>
        <source>Make a morph of what leads to the shape of another mesh</source>
        <translation>別のメッシュの形との差からモーフを作ります</translation>
    </message>
    <message>
        <source>Remove MorphMode</source>
        <translation>モーフを削除</translation>
    </message>
    <message>
        <source>Remove the selected morphs</source>
        <translation>選択したモーフを削除します</translation>
    </message>
    <message>
        <source>Reset All MorphValue</source>
        <translation>すべてのモーフ値をリセット</translation>
    </message>
    <message>
        <source>Set the values of all morphs of the tag to 0</source>
        <translation>タグのすべてのモーフの値を 0 にします</translation>
    </message>
    <message>
        <source>Regist SchematicView</source>
        <translation>スケマティックに登録</translation>
    </message>
    <message>
        <source>Give the selected morphs a block in the schematic</source>
        <translation>選択したモーフのブロックをスケマティックに置きます</translation>
    </message>
    <message>
        <source>Select Affected Vertex</source>
        <translation>影響する頂点を選択</translation>
    </message>
    <message>
        <source>Select the vertices that the selected morphs move</source>
        <translation>選択したモーフが動かす頂点を選択します</translation>
    </message>
    <message>
        <source>Edit Attribute</source>
        <translation>属性を編集</translation>
    </message>
    <message>
        <source>Edit names of the selected morphs and their corners in the panel</source>
        <translation>選択したモーフの名前とパネルの位置を編集します</translation>
    </message>
    <message>
        <source>MorphTag Not Selected.</source>
        <translation>モーフタグが選択されていません。</translation>
    </message>
    <message>
        <source>MorphNode Not Selected.</source>
        <translation>モーフが選択されていません。</translation>
    </message>
    <message>
        <source>All values are at 0.</source>
        <translation>すべての値が 0 です。</translation>
    </message>
    <message>
        <source>There is no schematic to put them in.</source>
        <translation>登録先のスケマティックがありません。</translation>
    </message>
    <message>
        <source>There is no vertex to be selected.</source>
        <translation>選択する頂点がありません。</translation>
    </message>
    <message>
        <source>%1 is locked.</source>
        <translation>%1 はロックされています。</translation>
    </message>
</context>
<context>
    <name>KMMorphDialog</name>
    <message>
        <source>Edit Attribute</source>
        <translation>属性を編集</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>種類</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名前</translation>
    </message>
</context>
<context>
    <name>KMMorphTree</name>
    <message>
        <source>Name</source>
        <translation>名前</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>値</translation>
    </message>
    <message>
        <source>Panel</source>
        <translation>パネル</translation>
    </message>
</context>
<context>
    <name>KMMotionTarget</name>
    <message>
        <source> RootBone not found.</source>
        <translation> ルートボーンが見つかりません。</translation>
    </message>
    <message>
        <source>BoneNode doesn&apos;t exist.</source>
        <translation>ボーンノードがありません。</translation>
    </message>
    <message>
        <source>%1 is locked</source>
        <translation>%1 はロックされています</translation>
    </message>
    <message>
        <source>file open error.</source>
        <translation>ファイルを開けません。</translation>
    </message>
    <message>
        <source>%1 of the %2 bones in the file were found</source>
        <translation>ファイルのボーン %2 本のうち %1 本が見つかりました</translation>
    </message>
</context>
<context>
    <name>KMNativeFormat</name>
    <message>
        <source>The file can&apos;t be written: %1</source>
        <translation>ファイルに書き込めません: %1</translation>
    </message>
    <message>
        <source>There is no file name</source>
        <translation>ファイル名がありません</translation>
    </message>
</context>
<context>
    <name>KMNodeClipboard</name>
    <message>
        <source>Paste</source>
        <translation>貼り付け</translation>
    </message>
    <message>
        <source>Select a node that can hold %1</source>
        <translation>%1 を持てるノードを選択してください</translation>
    </message>
</context>
<context>
    <name>KMNodeComContainer</name>
    <message>
        <source>Convert</source>
        <translation>変換</translation>
    </message>
    <message>
        <source>Mesh</source>
        <translation>メッシュ</translation>
    </message>
    <message>
        <source>Elements</source>
        <translation>要素</translation>
    </message>
    <message>
        <source>Coordinates</source>
        <translation>座標</translation>
    </message>
    <message>
        <source>Test</source>
        <translation>テスト</translation>
    </message>
</context>
<context>
    <name>KMNodeCommand</name>
    <message>
        <source>Align Faces</source>
        <translation>面の向きをそろえる</translation>
    </message>
    <message>
        <source>Turn the faces so that all of them look to the same side as their neighbours</source>
        <translation>すべての面が隣の面と同じ側を向くように裏返します</translation>
    </message>
    <message>
        <source>Assign Shader</source>
        <translation>シェーダーの割り当て</translation>
    </message>
    <message>
        <source>Give all faces of the mesh the current shader</source>
        <translation>メッシュのすべての面に現在のシェーダーを割り当てます</translation>
    </message>
    <message>
        <source>Clear Coodinates</source>
        <translation>座標をクリア</translation>
    </message>
    <message>
        <source>Put the axes of the node back to rest; vertices of meshes stay in place</source>
        <translation>ノードの軸を初期状態に戻します。メッシュの頂点は動きません</translation>
    </message>
    <message>
        <source>Copy Coodinates</source>
        <translation>座標をコピー</translation>
    </message>
    <message>
        <source>Copy position, rotation and scale of the node&apos;s axes</source>
        <translation>ノードの軸の位置、回転、拡大をコピーします</translation>
    </message>
    <message>
        <source>Paste Coodinates</source>
        <translation>座標を貼り付け</translation>
    </message>
    <message>
        <source>Give the node&apos;s axes the copied position, rotation and scale</source>
        <translation>コピーした位置、回転、拡大をノードの軸に適用します</translation>
    </message>
    <message>
        <source>Delete LinePolygon</source>
        <translation>ラインポリゴンを削除</translation>
    </message>
    <message>
        <source>Delete all line polygons of the mesh</source>
        <translation>メッシュのラインポリゴンをすべて削除します</translation>
    </message>
    <message>
        <source>Delete Overlapped faces</source>
        <translation>重なった面を削除</translation>
    </message>
    <message>
        <source>Delete the faces that have the same corners as another one</source>
        <translation>ほかの面と同じ頂点を持つ面を削除します</translation>
    </message>
    <message>
        <source>Delete X Minus Vertex</source>
        <translation>X マイナス側の頂点を削除</translation>
    </message>
    <message>
        <source>Delete the half of the mesh on the negative side of its X axis</source>
        <translation>メッシュの X 軸の負の側の半分を削除します</translation>
    </message>
    <message>
        <source>Fit FFD</source>
        <translation>FFD を合わせる</translation>
    </message>
    <message>
        <source>Put the box of the lattice around the selected vertices of its mesh</source>
        <translation>格子の箱をメッシュの選択頂点に合わせます</translation>
    </message>
    <message>
        <source>Freeze Modifiier</source>
        <translation>モディファイアをフリーズ</translation>
    </message>
    <message>
        <source>Replace the mesh by what its modifiers make of it</source>
        <translation>メッシュをモディファイアの結果に置き換えます</translation>
    </message>
    <message>
        <source>Invert Edge Selection</source>
        <translation>エッジの選択を反転</translation>
    </message>
    <message>
        <source>Select the edges that aren&apos;t selected, and only these</source>
        <translation>選択されていないエッジだけを選択します</translation>
    </message>
    <message>
        <source>Invert Face Selection</source>
        <translation>面の選択を反転</translation>
    </message>
    <message>
        <source>Select the faces that aren&apos;t selected, and only these</source>
        <translation>選択されていない面だけを選択します</translation>
    </message>
    <message>
        <source>Invert Vertex Selection</source>
        <translation>頂点の選択を反転</translation>
    </message>
    <message>
        <source>Select the vertices that aren&apos;t selected, and only these</source>
        <translation>選択されていない頂点だけを選択します</translation>
    </message>
    <message>
        <source>Merge Closed Vertex</source>
        <translation>近い頂点を結合</translation>
    </message>
    <message>
        <source>Merge vertices that lie closer together than a distance</source>
        <translation>指定した距離より近い頂点を結合します</translation>
    </message>
    <message>
        <source>Normalize LocalRotate</source>
        <translation>ローカル回転を正規化</translation>
    </message>
    <message>
        <source>Take the rotation out of the node&apos;s axes; vertices of meshes stay in place</source>
        <translation>ノードの軸の回転をなくします。メッシュの頂点は動きません</translation>
    </message>
    <message>
        <source>Polygonize</source>
        <translation>ポリゴン化</translation>
    </message>
    <message>
        <source>Turn the primitive into a mesh that can be edited</source>
        <translation>プリミティブを編集できるメッシュに変えます</translation>
    </message>
    <message>
        <source>Projection</source>
        <translation>投影</translation>
    </message>
    <message>
        <source>Move the selected vertices along the view onto the other meshes</source>
        <translation>選択頂点を視線に沿ってほかのメッシュの上へ動かします</translation>
    </message>
    <message>
        <source>NodeComTest</source>
        <translation>NodeComTest</translation>
    </message>
    <message>
        <source>Does nothing: for those who work on the program</source>
        <translation>何もしません。開発用の項目です</translation>
    </message>
    <message>
        <source>View Hide Face</source>
        <translation>隠した面を表示</translation>
    </message>
    <message>
        <source>Show the hidden faces of the selected meshes again</source>
        <translation>選択中のメッシュの隠した面を再び表示します</translation>
    </message>
    <message>
        <source>Wired</source>
        <translation>ワイヤー化</translation>
    </message>
    <message>
        <source>Turn the mesh into wires: a line polygon in place of each edge</source>
        <translation>メッシュを各エッジのラインポリゴンに変えます</translation>
    </message>
    <message>
        <source>Node Selection not found.</source>
        <translation>選択中のノードがありません。</translation>
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
    <message>
        <source>Add Node</source>
        <translation>ノードの追加</translation>
    </message>
    <message>
        <source>No mesh was current: move the modifier below the mesh that it shall change</source>
        <translation>現在のメッシュがありません。モディファイアを対象のメッシュの下へ移動してください</translation>
    </message>
    <message>
        <source>Delete Tag</source>
        <translation>タグの削除</translation>
    </message>
    <message>
        <source>%1 is locked</source>
        <translation>%1 はロックされています</translation>
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
    <message>
        <source>Visible</source>
        <translation>表示</translation>
    </message>
    <message>
        <source>Locked</source>
        <translation>ロック</translation>
    </message>
    <message>
        <source>%1 nodes are selected. Switches and coordinates are set on all of them.</source>
        <translation>%1 個のノードが選択されています。スイッチと座標はすべてに設定されます。</translation>
    </message>
    <message>
        <source>%1 bones are selected. Switches and limits are set on all of them.</source>
        <translation>%1 本のボーンを選択中です。スイッチと制限はすべてに設定されます。</translation>
    </message>
</context>
<context>
    <name>KMNormalCommand</name>
    <message>
        <source>%1: %2 is locked</source>
        <translation>%1: %2 はロックされています</translation>
    </message>
    <message>
        <source>%1: %2 has no normal tag; its menu in the list of nodes adds one</source>
        <translation>%1: %2 には法線タグがありません。ノード一覧のメニューから追加できます</translation>
    </message>
    <message>
        <source>%1: select a mesh that has a normal tag</source>
        <translation>%1: 法線タグを持つメッシュを選択してください</translation>
    </message>
    <message>
        <source>vertices</source>
        <translation>頂点</translation>
    </message>
    <message>
        <source>edges</source>
        <translation>辺</translation>
    </message>
    <message>
        <source>faces</source>
        <translation>面</translation>
    </message>
    <message>
        <source>%1: select %2 of a mesh</source>
        <translation>%1: メッシュの%2を選択してください</translation>
    </message>
    <message>
        <source> or </source>
        <translation>または</translation>
    </message>
    <message>
        <source>%1: %2 changed</source>
        <translation>%1: %2 を変更しました</translation>
    </message>
</context>
<context>
    <name>KMNormalTagPage</name>
    <message>
        <source>NormalTag</source>
        <translation>法線タグ</translation>
    </message>
    <message>
        <source>Crease edges</source>
        <translation>折り目の辺</translation>
    </message>
    <message>
        <source>Fixed normals</source>
        <translation>固定した法線</translation>
    </message>
    <message>
        <source>Rotated normals</source>
        <translation>回転した法線</translation>
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
    <name>KMPanelBar</name>
    <message>
        <source>How the buttons of this bar look</source>
        <translation>このバーのボタンの見た目</translation>
    </message>
    <message>
        <source>IconOnly</source>
        <translation>アイコンのみ</translation>
    </message>
    <message>
        <source>TextOnly</source>
        <translation>文字のみ</translation>
    </message>
    <message>
        <source>TextBesideIcon</source>
        <translation>アイコンの横に文字</translation>
    </message>
    <message>
        <source>TextUnderIcon</source>
        <translation>アイコンの下に文字</translation>
    </message>
</context>
<context>
    <name>KMPathMesher</name>
    <message>
        <source>An outline reaches too far</source>
        <translation>輪郭が遠くまで伸びすぎています</translation>
    </message>
    <message>
        <source>The outlines have %1 points; the limit is %2</source>
        <translation>輪郭の点は %1 個です。上限は %2 個です</translation>
    </message>
    <message>
        <source>Outlines over one another have %1 points; the limit is %2</source>
        <translation>重なり合う輪郭の点は %1 個です。上限は %2 個です</translation>
    </message>
    <message>
        <source>Outlines cross one another more than %1 times</source>
        <translation>輪郭が %1 回より多く交差しています</translation>
    </message>
    <message>
        <source>An outline can&apos;t be filled</source>
        <translation>塗りつぶせない輪郭があります</translation>
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
    <name>KMPbrShaderPage</name>
    <message>
        <source>The views draw faces of this shader black. Models for MMD are made with basic shaders.</source>
        <translation>ビューはこのシェーダーの面を黒で描きます。MMD 用のモデルには基本シェーダーを使います。</translation>
    </message>
</context>
<context>
    <name>KMPhysicsColumns</name>
    <message>
        <source>Name</source>
        <translation>名前</translation>
    </message>
    <message>
        <source>Bone</source>
        <translation>ボーン</translation>
    </message>
    <message>
        <source>Move %1</source>
        <translation>移動 %1</translation>
    </message>
    <message>
        <source>Scale %1</source>
        <translation>拡大縮小 %1</translation>
    </message>
    <message>
        <source>Rotate %1</source>
        <translation>回転 %1</translation>
    </message>
    <message>
        <source>None</source>
        <translation>なし</translation>
    </message>
    <message>
        <source>Min</source>
        <translation>最小</translation>
    </message>
    <message>
        <source>Max</source>
        <translation>最大</translation>
    </message>
    <message>
        <source>Enabled</source>
        <translation>有効</translation>
    </message>
    <message>
        <source>Shape Type</source>
        <translation>形状</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>幅</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>高さ</translation>
    </message>
    <message>
        <source>Depth</source>
        <translation>奥行き</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>種類</translation>
    </message>
    <message>
        <source>Mass</source>
        <translation>質量</translation>
    </message>
    <message>
        <source>Linear Damping</source>
        <translation>移動減衰</translation>
    </message>
    <message>
        <source>Angular Damping</source>
        <translation>回転減衰</translation>
    </message>
    <message>
        <source>Friction</source>
        <translation>摩擦力</translation>
    </message>
    <message>
        <source>Restitution</source>
        <translation>反発力</translation>
    </message>
    <message>
        <source>Config</source>
        <translation>グループ</translation>
    </message>
    <message>
        <source>Collision Mask</source>
        <translation>非衝突グループ</translation>
    </message>
    <message>
        <source>Connection A</source>
        <translation>接続 A</translation>
    </message>
    <message>
        <source>Connection B</source>
        <translation>接続 B</translation>
    </message>
    <message>
        <source>Linear Limit %1 %2</source>
        <translation>移動制限 %1 %2</translation>
    </message>
    <message>
        <source>Angular Limit %1 %2</source>
        <translation>回転制限 %1 %2</translation>
    </message>
    <message>
        <source>Sping Linear %1</source>
        <translation>ばね 移動 %1</translation>
    </message>
    <message>
        <source>Sping Angular %1</source>
        <translation>ばね 回転 %1</translation>
    </message>
</context>
<context>
    <name>KMPhysicsSheet</name>
    <message>
        <source>Edit RigidBody</source>
        <translation>剛体の編集</translation>
    </message>
    <message>
        <source>Edit Joint</source>
        <translation>ジョイントの編集</translation>
    </message>
    <message>
        <source>Physics Sheet</source>
        <translation>物理シート</translation>
    </message>
    <message>
        <source>Rig: %1</source>
        <translation>リグ: %1</translation>
    </message>
    <message>
        <source>There is no rig in the document</source>
        <translation>リグがありません</translation>
    </message>
    <message>
        <source>not selected.</source>
        <translation>選択されていません。</translation>
    </message>
    <message>
        <source>This cell can&apos;t be edited</source>
        <translation>このセルは編集できません</translation>
    </message>
</context>
<context>
    <name>KMPlayback</name>
    <message>
        <source>Backward</source>
        <translation>先頭へ</translation>
    </message>
    <message>
        <source>Go to the first frame</source>
        <translation>最初のフレームへ移動します</translation>
    </message>
    <message>
        <source>Prev</source>
        <translation>前へ</translation>
    </message>
    <message>
        <source>Go one frame back</source>
        <translation>1 フレーム戻ります</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>再生</translation>
    </message>
    <message>
        <source>Play the motion, or stop it</source>
        <translation>モーションを再生または停止します</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>次へ</translation>
    </message>
    <message>
        <source>Go to the next frame</source>
        <translation>次のフレームへ移動します</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>末尾へ</translation>
    </message>
    <message>
        <source>Go to the frame of the last key</source>
        <translation>最後のキーのフレームへ移動します</translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>ループ</translation>
    </message>
    <message>
        <source>Begin again at the end of the motion</source>
        <translation>モーションの終わりで最初に戻ります</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>一時停止</translation>
    </message>
    <message>
        <source>There are no keys to play</source>
        <translation>再生するキーがありません</translation>
    </message>
</context>
<context>
    <name>KMPreviewPage</name>
    <message>
        <source>Apply</source>
        <translation>適用</translation>
    </message>
</context>
<context>
    <name>KMPrim3DTextNode</name>
    <message>
        <source>3DText</source>
        <translation>3D テキスト</translation>
    </message>
    <message>
        <source>The text of %1 has no shape: %2</source>
        <translation>%1 のテキストから形を作れません: %2</translation>
    </message>
</context>
<context>
    <name>KMPrim3DTextPage</name>
    <message>
        <source>3DTextNode</source>
        <translation>3D テキストノード</translation>
    </message>
    <message>
        <source>Depth</source>
        <translation>奥行き</translation>
    </message>
    <message>
        <source>Segment</source>
        <translation>分割</translation>
    </message>
    <message>
        <source>Align</source>
        <translation>揃え</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>左</translation>
    </message>
    <message>
        <source>Center</source>
        <translation>中央</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>右</translation>
    </message>
    <message>
        <source>Ctrl+Enter hands the text over</source>
        <translation>Ctrl+Enter でテキストを確定します</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>テキスト</translation>
    </message>
    <message>
        <source>Font</source>
        <translation>フォント</translation>
    </message>
    <message>
        <source>Bold</source>
        <translation>太字</translation>
    </message>
    <message>
        <source>Italic</source>
        <translation>斜体</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>サイズ</translation>
    </message>
</context>
<context>
    <name>KMPrimCubeNode</name>
    <message>
        <source>Cube</source>
        <translation>立方体</translation>
    </message>
</context>
<context>
    <name>KMPrimCubePage</name>
    <message>
        <source>Cube Primitive</source>
        <translation>立方体プリミティブ</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>サイズ</translation>
    </message>
</context>
<context>
    <name>KMPrimCylinderNode</name>
    <message>
        <source>Cylinder</source>
        <translation>円柱</translation>
    </message>
</context>
<context>
    <name>KMPrimCylinderPage</name>
    <message>
        <source>Cylinder Primitive</source>
        <translation>円柱プリミティブ</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>高さ</translation>
    </message>
    <message>
        <source>Radius</source>
        <translation>半径</translation>
    </message>
    <message>
        <source>Rings</source>
        <translation>リング数</translation>
    </message>
    <message>
        <source>Sectors</source>
        <translation>セクター数</translation>
    </message>
</context>
<context>
    <name>KMPrimPlaneNode</name>
    <message>
        <source>Plane</source>
        <translation>平面</translation>
    </message>
</context>
<context>
    <name>KMPrimPlanePage</name>
    <message>
        <source>Plane Primitive</source>
        <translation>平面プリミティブ</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>幅</translation>
    </message>
    <message>
        <source>Depth</source>
        <translation>奥行き</translation>
    </message>
    <message>
        <source>U AxisDiv</source>
        <translation>U 軸分割</translation>
    </message>
    <message>
        <source>V AxisDiv</source>
        <translation>V 軸分割</translation>
    </message>
</context>
<context>
    <name>KMPrimSVGNode</name>
    <message>
        <source>SVG</source>
        <translation>SVG</translation>
    </message>
    <message>
        <source>%1 can&apos;t be read: %2</source>
        <translation>%1 を読み込めません: %2</translation>
    </message>
    <message>
        <source>%1 doesn&apos;t show all of its drawing. %2</source>
        <translation>%1 は図の一部を表示していません。%2</translation>
    </message>
    <message>
        <source>%1 holds no filled or stroked shape</source>
        <translation>%1 には塗りや線のある形がありません</translation>
    </message>
</context>
<context>
    <name>KMPrimSVGPage</name>
    <message>
        <source>SVG</source>
        <translation>SVG</translation>
    </message>
    <message>
        <source>Choose the file</source>
        <translation>ファイルを選択</translation>
    </message>
    <message>
        <source>File</source>
        <translation>ファイル</translation>
    </message>
    <message>
        <source>Open SVG</source>
        <translation>SVG を開く</translation>
    </message>
    <message>
        <source>SVG drawing (*.svg)</source>
        <translation>SVG 図面 (*.svg)</translation>
    </message>
</context>
<context>
    <name>KMPrimSphereNode</name>
    <message>
        <source>Sphere</source>
        <translation>球</translation>
    </message>
</context>
<context>
    <name>KMPrimSpherePage</name>
    <message>
        <source>Sphere Primitive</source>
        <translation>球プリミティブ</translation>
    </message>
    <message>
        <source>Radius</source>
        <translation>半径</translation>
    </message>
    <message>
        <source>Rings</source>
        <translation>リング数</translation>
    </message>
    <message>
        <source>Sectors</source>
        <translation>セクター数</translation>
    </message>
</context>
<context>
    <name>KMPrimTorusNode</name>
    <message>
        <source>Torus</source>
        <translation>トーラス</translation>
    </message>
</context>
<context>
    <name>KMPrimTorusPage</name>
    <message>
        <source>Torus Primitive</source>
        <translation>トーラスプリミティブ</translation>
    </message>
    <message>
        <source>Outer Radius</source>
        <translation>外半径</translation>
    </message>
    <message>
        <source>Radius</source>
        <translation>半径</translation>
    </message>
    <message>
        <source>Outer Rings</source>
        <translation>外周分割</translation>
    </message>
    <message>
        <source>Torus Rings</source>
        <translation>断面分割</translation>
    </message>
</context>
<context>
    <name>KMPrimitiveNode</name>
    <message>
        <source>%1 would have %2 faces; the limit is %3</source>
        <translation>%1 の面は %2 枚になります。上限は %3 枚です</translation>
    </message>
</context>
<context>
    <name>KMPrimitivePage</name>
    <message>
        <source>Shader</source>
        <translation>シェーダー</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>既定</translation>
    </message>
    <message>
        <source>None</source>
        <translation>なし</translation>
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
    <name>KMReadReport</name>
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
</context>
<context>
    <name>KMResultLimit</name>
    <message>
        <source>%1 would make %2 vertices and %3 faces, more than the memory holds; its result stays empty</source>
        <translation>%1 は頂点 %2 個と面 %3 個を作ることになり、メモリーに収まりません。結果は空のままです</translation>
    </message>
</context>
<context>
    <name>KMRigTagPages</name>
    <message>
        <source>Move</source>
        <translation>移動</translation>
    </message>
    <message>
        <source>Rotate</source>
        <translation>回転</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>拡大縮小</translation>
    </message>
    <message>
        <source>Kept with the document: sizes alone go into a model</source>
        <translation>ドキュメントにだけ保存されます。モデルにはサイズだけが書き出されます</translation>
    </message>
</context>
<context>
    <name>KMRigidBodyPage</name>
    <message>
        <source>RigidBody</source>
        <translation>剛体</translation>
    </message>
    <message>
        <source>Enabled</source>
        <translation>有効</translation>
    </message>
    <message>
        <source>Shape Type</source>
        <translation>形状</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>種類</translation>
    </message>
    <message>
        <source>Mass</source>
        <translation>質量</translation>
    </message>
    <message>
        <source>Linear Damping</source>
        <translation>移動減衰</translation>
    </message>
    <message>
        <source>Angular Damping</source>
        <translation>回転減衰</translation>
    </message>
    <message>
        <source>Friction</source>
        <translation>摩擦力</translation>
    </message>
    <message>
        <source>Restitution</source>
        <translation>反発力</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>幅</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>高さ</translation>
    </message>
    <message>
        <source>Depth</source>
        <translation>奥行き</translation>
    </message>
    <message>
        <source>Config</source>
        <translation>グループ</translation>
    </message>
    <message>
        <source>Collision Mask</source>
        <translation>非衝突グループ</translation>
    </message>
</context>
<context>
    <name>KMSelPage</name>
    <message>
        <source>A click chooses the whole mesh in the tree</source>
        <translation>クリックするとツリーでメッシュ全体を選びます</translation>
    </message>
    <message>
        <source>Clicks on vertices select the shortest way of edges from each to the next</source>
        <translation>頂点を順にクリックすると、間の最短経路の辺を選択します</translation>
    </message>
    <message>
        <source>A click on a face selects all that hang together with it</source>
        <translation>面をクリックすると、つながった面をすべて選択します</translation>
    </message>
    <message>
        <source>A click on an edge selects the belt of quads that crosses it</source>
        <translation>辺をクリックすると、それを横切る四角形の帯を選択します</translation>
    </message>
    <message>
        <source>A click on an edge selects the loop that it lies on</source>
        <translation>辺をクリックすると、その辺を通るループを選択します</translation>
    </message>
    <message>
        <source>A click on an edge selects the ring of edges opposite to one another</source>
        <translation>辺をクリックすると、向かい合う辺のリングを選択します</translation>
    </message>
</context>
<context>
    <name>KMSelectionChain</name>
    <message>
        <source>Loop Select</source>
        <translation>ループ選択</translation>
    </message>
    <message>
        <source>Ring Select</source>
        <translation>リング選択</translation>
    </message>
    <message>
        <source>Belt Select</source>
        <translation>ベルト選択</translation>
    </message>
    <message>
        <source>Chained Select</source>
        <translation>連続面の選択</translation>
    </message>
    <message>
        <source>Root Select</source>
        <translation>経路の選択</translation>
    </message>
</context>
<context>
    <name>KMSelectionCommand</name>
    <message>
        <source>Align Vertex</source>
        <translation>頂点を揃える</translation>
    </message>
    <message>
        <source>Move the selected vertices onto one value along chosen axes</source>
        <translation>選択した頂点を、選んだ軸の同じ値に揃えます</translation>
    </message>
    <message>
        <source>Assign Shader</source>
        <translation>シェーダーの割り当て</translation>
    </message>
    <message>
        <source>Give the selected faces the current shader</source>
        <translation>選択した面に現在のシェーダーを割り当てます</translation>
    </message>
    <message>
        <source>Belt Sellect Face</source>
        <translation>面をベルト選択</translation>
    </message>
    <message>
        <source>Select the belts of quads that cross the selected edges</source>
        <translation>選択した辺を横切る四角形の帯を選択します</translation>
    </message>
    <message>
        <source>Select Chained Face</source>
        <translation>つながった面を選択</translation>
    </message>
    <message>
        <source>Select all faces that hang together with the selected ones</source>
        <translation>選択した面とつながっているすべての面を選択します</translation>
    </message>
    <message>
        <source>Divide Edge</source>
        <translation>辺を分割</translation>
    </message>
    <message>
        <source>Cut the selected edges into equal parts, and the faces on them</source>
        <translation>選択した辺を等分し、その辺を持つ面も分割します</translation>
    </message>
    <message>
        <source>Edge Extrude</source>
        <translation>辺の押し出し</translation>
    </message>
    <message>
        <source>Grow a quad out of each selected edge, ready to be moved</source>
        <translation>選択した辺から四角形を伸ばします。続けて移動できます</translation>
    </message>
    <message>
        <source>Edge To LinePolygon</source>
        <translation>辺をラインポリゴンに</translation>
    </message>
    <message>
        <source>Put a line polygon on each selected edge</source>
        <translation>選択した辺にラインポリゴンを作ります</translation>
    </message>
    <message>
        <source>Edge To Vertex</source>
        <translation>辺から頂点へ</translation>
    </message>
    <message>
        <source>Select the ends of the selected edges in their place</source>
        <translation>選択した辺の代わりに両端の頂点を選択します</translation>
    </message>
    <message>
        <source>Expand Face Selection</source>
        <translation>面の選択を拡大</translation>
    </message>
    <message>
        <source>Select the faces beside the selected ones as well</source>
        <translation>選択した面に隣り合う面も選択します</translation>
    </message>
    <message>
        <source>Expand Vertex Selection</source>
        <translation>頂点の選択を拡大</translation>
    </message>
    <message>
        <source>Select the vertices around the selected ones as well</source>
        <translation>選択した頂点の周りの頂点も選択します</translation>
    </message>
    <message>
        <source>Face To Edge</source>
        <translation>面から辺へ</translation>
    </message>
    <message>
        <source>Select the edges of the selected faces in their place</source>
        <translation>選択した面の代わりにその辺を選択します</translation>
    </message>
    <message>
        <source>Face To Vertex</source>
        <translation>面から頂点へ</translation>
    </message>
    <message>
        <source>Select the vertices of the selected faces in their place</source>
        <translation>選択した面の代わりにその頂点を選択します</translation>
    </message>
    <message>
        <source>Fill Hole</source>
        <translation>穴を埋める</translation>
    </message>
    <message>
        <source>Close the holes around which the selected edges run</source>
        <translation>選択した辺に囲まれた穴をふさぎます</translation>
    </message>
    <message>
        <source>Hide Face</source>
        <translation>面を隠す</translation>
    </message>
    <message>
        <source>Hide the selected faces</source>
        <translation>選択した面を隠します</translation>
    </message>
    <message>
        <source>Loop Select Edge</source>
        <translation>辺をループ選択</translation>
    </message>
    <message>
        <source>Select the loops that run on from the selected edges</source>
        <translation>選択した辺から続くループを選択します</translation>
    </message>
    <message>
        <source>Merge Same Pos Vertex</source>
        <translation>同じ位置の頂点を結合</translation>
    </message>
    <message>
        <source>Merge those of the selected vertices that lie at the same place</source>
        <translation>選択した頂点のうち同じ位置にあるものを結合します</translation>
    </message>
    <message>
        <source>Merge Vertex</source>
        <translation>頂点を結合</translation>
    </message>
    <message>
        <source>Merge the selected vertices of each mesh into one in their middle</source>
        <translation>選択した頂点をメッシュごとに中央の 1 点に結合します</translation>
    </message>
    <message>
        <source>Reverse Face</source>
        <translation>面を反転</translation>
    </message>
    <message>
        <source>Turn the selected faces to the other side</source>
        <translation>選択した面の表裏を反転します</translation>
    </message>
    <message>
        <source>Select Ridge Edge</source>
        <translation>境界の辺を選択</translation>
    </message>
    <message>
        <source>Select the open border: all edges with exactly one face</source>
        <translation>面が 1 つだけの、開いた境界の辺を選択します</translation>
    </message>
    <message>
        <source>Ring Select Edge</source>
        <translation>辺をリング選択</translation>
    </message>
    <message>
        <source>Select the rings across the quads beside the selected edges</source>
        <translation>選択した辺から四角形を横切って続くリングを選択します</translation>
    </message>
    <message>
        <source>Rotate Face</source>
        <translation>面を回転</translation>
    </message>
    <message>
        <source>Lay the diagonal of the selected quads the other way</source>
        <translation>選択した四角形の対角線の向きを変えます</translation>
    </message>
    <message>
        <source>Separate Edge</source>
        <translation>辺で切り離す</translation>
    </message>
    <message>
        <source>Cut the mesh open along the selected edges</source>
        <translation>選択した辺に沿ってメッシュを切り開きます</translation>
    </message>
    <message>
        <source>Separate Vertex</source>
        <translation>頂点を切り離す</translation>
    </message>
    <message>
        <source>Give each face at the selected vertices a vertex of its own</source>
        <translation>選択した頂点を、面ごとに別の頂点に分けます</translation>
    </message>
    <message>
        <source>Smooth Edge</source>
        <translation>辺を滑らかに</translation>
    </message>
    <message>
        <source>Lay the chains of selected edges along smooth curves</source>
        <translation>選択した辺の連なりを滑らかな曲線に整えます</translation>
    </message>
    <message>
        <source>Select Surrounded By Edge</source>
        <translation>辺に囲まれた面を選択</translation>
    </message>
    <message>
        <source>Select from the selected faces on as far as the selected edges</source>
        <translation>選択した面から、選択した辺までの範囲の面を選択します</translation>
    </message>
    <message>
        <source>Symmetrize</source>
        <translation>対称化</translation>
    </message>
    <message>
        <source>Make two selected vertices mirror images of each other</source>
        <translation>選択した 2 つの頂点を互いの鏡像にします</translation>
    </message>
    <message>
        <source>Sel TestCommand</source>
        <translation>選択テストコマンド</translation>
    </message>
    <message>
        <source>Does nothing: for those who work on the program</source>
        <translation>何もしません。開発用の項目です</translation>
    </message>
    <message>
        <source>Triangulate</source>
        <translation>三角形に分割</translation>
    </message>
    <message>
        <source>Split the selected quads into triangles</source>
        <translation>選択した四角形を三角形に分割します</translation>
    </message>
    <message>
        <source>Vertex Selection not found.</source>
        <translation>頂点が選択されていません。</translation>
    </message>
    <message>
        <source>Edge Selection not found.</source>
        <translation>辺が選択されていません。</translation>
    </message>
    <message>
        <source>Face Selection not found.</source>
        <translation>面が選択されていません。</translation>
    </message>
</context>
<context>
    <name>KMSelectionTransform</name>
    <message>
        <source>Move Selection</source>
        <translation>選択の移動</translation>
    </message>
    <message>
        <source>Scale Selection</source>
        <translation>選択の拡大縮小</translation>
    </message>
    <message>
        <source>Rotate Selection</source>
        <translation>選択の回転</translation>
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
    <message>
        <source>Interface</source>
        <translation>インターフェース</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>言語</translation>
    </message>
    <message>
        <source>English</source>
        <translation>English</translation>
    </message>
    <message>
        <source>Japanese</source>
        <translation>日本語</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>テーマ</translation>
    </message>
    <message>
        <source>Dark Orange</source>
        <translation>ダークオレンジ</translation>
    </message>
    <message>
        <source>Dark Blue</source>
        <translation>ダークブルー</translation>
    </message>
    <message>
        <source>Dark Green</source>
        <translation>ダークグリーン</translation>
    </message>
    <message>
        <source>Dark Pink</source>
        <translation>ダークピンク</translation>
    </message>
    <message>
        <source>Icon Size</source>
        <translation>アイコンの大きさ</translation>
    </message>
    <message>
        <source>Small</source>
        <translation>小</translation>
    </message>
    <message>
        <source>Large</source>
        <translation>大</translation>
    </message>
    <message>
        <source>Font</source>
        <translation>フォント</translation>
    </message>
    <message>
        <source>Font Size</source>
        <translation>フォントの大きさ</translation>
    </message>
    <message>
        <source> pt</source>
        <translation> pt</translation>
    </message>
    <message>
        <source>Native Menu</source>
        <translation>OS 標準のメニュー</translation>
    </message>
    <message>
        <source>Animate Panels</source>
        <translation>パネルをアニメーション</translation>
    </message>
    <message>
        <source>Color Sliders in HSV</source>
        <translation>カラースライダーを HSV で表示</translation>
    </message>
    <message>
        <source>Document</source>
        <translation>ドキュメント</translation>
    </message>
    <message>
        <source>Startup</source>
        <translation>起動時</translation>
    </message>
    <message>
        <source>No Action</source>
        <translation>何もしない</translation>
    </message>
    <message>
        <source>Load Last File</source>
        <translation>最後のファイルを開く</translation>
    </message>
    <message>
        <source>Undo Count</source>
        <translation>元に戻す回数</translation>
    </message>
    <message>
        <source>Enable AutoSave</source>
        <translation>自動保存を有効にする</translation>
    </message>
    <message>
        <source>Interval</source>
        <translation>間隔</translation>
    </message>
    <message>
        <source> min</source>
        <translation> 分</translation>
    </message>
    <message>
        <source>Ask Before Saving</source>
        <translation>保存前に確認</translation>
    </message>
    <message>
        <source>Keep a Zip Archive of Every Save</source>
        <translation>保存のたびに ZIP で控えを残す</translation>
    </message>
    <message>
        <source> px</source>
        <translation> px</translation>
    </message>
    <message>
        <source>Mouse</source>
        <translation>マウス</translation>
    </message>
    <message>
        <source>Drag Starts After</source>
        <translation>ドラッグ開始の距離</translation>
    </message>
    <message>
        <source>Click Margin</source>
        <translation>クリックの許容範囲</translation>
    </message>
    <message>
        <source>Symmetry Margin</source>
        <translation>対称の許容範囲</translation>
    </message>
    <message>
        <source>Snap Margin</source>
        <translation>スナップの許容範囲</translation>
    </message>
    <message>
        <source>Handle</source>
        <translation>ハンドル</translation>
    </message>
    <message>
        <source>Handle Size</source>
        <translation>ハンドルの大きさ</translation>
    </message>
    <message>
        <source>Reverse Z Axis of the Handle</source>
        <translation>ハンドルの Z 軸を反転</translation>
    </message>
    <message>
        <source>Dolly</source>
        <translation>ドリー</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>ズーム</translation>
    </message>
    <message>
        <source>Rotation Speed</source>
        <translation>回転の速さ</translation>
    </message>
    <message>
        <source>Zoom Speed</source>
        <translation>ズームの速さ</translation>
    </message>
    <message>
        <source>Left and Right Drag</source>
        <translation>左右ボタンのドラッグ</translation>
    </message>
    <message>
        <source>Wheel</source>
        <translation>ホイール</translation>
    </message>
    <message>
        <source>Reverse X</source>
        <translation>X を反転</translation>
    </message>
    <message>
        <source>Reverse Y</source>
        <translation>Y を反転</translation>
    </message>
    <message>
        <source>Reverse Wheel</source>
        <translation>ホイールを反転</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>カメラ</translation>
    </message>
    <message>
        <source>Stop at the Poles</source>
        <translation>極で止める</translation>
    </message>
    <message>
        <source>Both</source>
        <translation>両方</translation>
    </message>
    <message>
        <source>North</source>
        <translation>北</translation>
    </message>
    <message>
        <source>South</source>
        <translation>南</translation>
    </message>
    <message>
        <source>None</source>
        <translation>なし</translation>
    </message>
    <message>
        <source>Orthographic in Standard Views</source>
        <translation>標準の向きで平行投影</translation>
    </message>
    <message>
        <source>Animate Camera</source>
        <translation>カメラをアニメーション</translation>
    </message>
    <message>
        <source>Pen</source>
        <translation>ペン</translation>
    </message>
    <message>
        <source>MicroSoft (MPP)</source>
        <translation>MicroSoft (MPP)</translation>
    </message>
    <message>
        <source>Wacom (WinTab)</source>
        <translation>Wacom (WinTab)</translation>
    </message>
    <message>
        <source>Enable Touch</source>
        <translation>タッチを有効にする</translation>
    </message>
    <message>
        <source>Context</source>
        <translation>コンテキスト</translation>
    </message>
    <message>
        <source>Profile</source>
        <translation>プロファイル</translation>
    </message>
    <message>
        <source>Compatibility 2.1</source>
        <translation>互換 2.1</translation>
    </message>
    <message>
        <source>Compatibility 4.0</source>
        <translation>互換 4.0</translation>
    </message>
    <message>
        <source>Samples</source>
        <translation>サンプル数</translation>
    </message>
    <message>
        <source>V-sync</source>
        <translation>垂直同期</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>オフ</translation>
    </message>
    <message>
        <source>On</source>
        <translation>オン</translation>
    </message>
    <message>
        <source>Lines and Points</source>
        <translation>線と点</translation>
    </message>
    <message>
        <source>Line Width</source>
        <translation>線の太さ</translation>
    </message>
    <message>
        <source>Point Size</source>
        <translation>点の大きさ</translation>
    </message>
    <message>
        <source>Line Width of Tools</source>
        <translation>ツールの線の太さ</translation>
    </message>
    <message>
        <source>Point Size of Tools</source>
        <translation>ツールの点の大きさ</translation>
    </message>
    <message>
        <source>Normal Length</source>
        <translation>法線の長さ</translation>
    </message>
    <message>
        <source>Surfaces</source>
        <translation>面</translation>
    </message>
    <message>
        <source>BackGround</source>
        <translation>背景</translation>
    </message>
    <message>
        <source>Flat</source>
        <translation>単色</translation>
    </message>
    <message>
        <source>Gradation</source>
        <translation>グラデーション</translation>
    </message>
    <message>
        <source>Reverse</source>
        <translation>反転</translation>
    </message>
    <message>
        <source>Blend of Selected Faces</source>
        <translation>選択面の混合</translation>
    </message>
    <message>
        <source>Max Texture Size</source>
        <translation>テクスチャの最大サイズ</translation>
    </message>
    <message>
        <source>Smooth Textures</source>
        <translation>テクスチャを滑らかにする</translation>
    </message>
    <message>
        <source>Texture</source>
        <translation>テクスチャ</translation>
    </message>
    <message>
        <source>Texture Shown</source>
        <translation>表示するテクスチャ</translation>
    </message>
    <message>
        <source>Selected Texture</source>
        <translation>選択中のテクスチャ</translation>
    </message>
    <message>
        <source>Texture of the Active Shader</source>
        <translation>アクティブなシェーダーのテクスチャ</translation>
    </message>
    <message>
        <source>Brightness</source>
        <translation>明るさ</translation>
    </message>
    <message>
        <source>Names</source>
        <translation>名前</translation>
    </message>
    <message>
        <source>Custom Panel1</source>
        <translation>カスタムパネル1</translation>
    </message>
    <message>
        <source>Custom Panel2</source>
        <translation>カスタムパネル2</translation>
    </message>
    <message>
        <source>Custom Panel3</source>
        <translation>カスタムパネル3</translation>
    </message>
    <message>
        <source>Custom Panel4</source>
        <translation>カスタムパネル4</translation>
    </message>
</context>
<context>
    <name>KMSheetModel</name>
    <message>
        <source>%1 can&apos;t be &quot;%2&quot;</source>
        <translation>%1 を「%2」にはできません</translation>
    </message>
</context>
<context>
    <name>KMShelfDock</name>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Select an entry of the panel %1 first</source>
        <translation>先にパネル「%1」の項目を選択してください</translation>
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
    <name>KMSvgReader</name>
    <message>
        <source>This is not an SVG drawing</source>
        <translation>SVG 図面ではありません</translation>
    </message>
    <message>
        <source>Elements lie deeper in one another than %1</source>
        <translation>要素の入れ子が %1 段より深くなっています</translation>
    </message>
    <message>
        <source>Line %1: %2</source>
        <translation>%1 行: %2</translation>
    </message>
    <message>
        <source>Line %1: %2 was left out</source>
        <translation>%1 行: %2 は省かれました</translation>
    </message>
    <message>
        <source>Line %1: the drawing has more than %2 points</source>
        <translation>%1 行: 図の点が %2 個を超えています</translation>
    </message>
    <message>
        <source>Line %1: the path ends at a mistake or is too long</source>
        <translation>%1 行: パスは誤りのある所で終わっているか、長すぎます</translation>
    </message>
    <message>
        <source>The file is larger than %1 bytes</source>
        <translation>ファイルが %1 バイトを超えています</translation>
    </message>
</context>
<context>
    <name>KMSwitchMenu</name>
    <message>
        <source>Switch on or off: %1</source>
        <translation>オン / オフを切り替え: %1</translation>
    </message>
    <message>
        <source>Bring all switches of this menu to the state of a new document</source>
        <translation>このメニューのスイッチをすべて新規ドキュメントの状態に戻します</translation>
    </message>
</context>
<context>
    <name>KMTagBoneWeight</name>
    <message>
        <source>BoneWeightTag</source>
        <translation>ボーンウェイトタグ</translation>
    </message>
</context>
<context>
    <name>KMTagConstraint</name>
    <message>
        <source>Constraint</source>
        <translation>コンストレイント</translation>
    </message>
</context>
<context>
    <name>KMTagFloatValue</name>
    <message>
        <source>FloatValue</source>
        <translation>数値</translation>
    </message>
</context>
<context>
    <name>KMTagFloatValuePage</name>
    <message>
        <source>FloatValue</source>
        <translation>数値</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>値</translation>
    </message>
</context>
<context>
    <name>KMTagGroup</name>
    <message>
        <source>Group</source>
        <translation>グループ</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>表示</translation>
    </message>
    <message>
        <source>Hide</source>
        <translation>非表示</translation>
    </message>
    <message>
        <source>Show Selected</source>
        <translation>選択したものだけ表示</translation>
    </message>
    <message>
        <source>TagGroup Done</source>
        <translation>グループタグの適用</translation>
    </message>
</context>
<context>
    <name>KMTagGroupPage</name>
    <message>
        <source>Group</source>
        <translation>グループ</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>モード</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>適用</translation>
    </message>
    <message>
        <source>Show or hide the nodes below this one</source>
        <translation>このノードの下のノードを表示または非表示にします</translation>
    </message>
</context>
<context>
    <name>KMTagJoint</name>
    <message>
        <source>Joint</source>
        <translation>ジョイント</translation>
    </message>
</context>
<context>
    <name>KMTagMenu</name>
    <message>
        <source>Add Normal Tag</source>
        <translation>法線タグを追加</translation>
    </message>
    <message>
        <source>Let creases and normals of this mesh be edited</source>
        <translation>このメッシュの折り目と法線を編集できるようにします</translation>
    </message>
    <message>
        <source>Add BoneWeight Tag</source>
        <translation>ボーンウェイトタグを追加</translation>
    </message>
    <message>
        <source>Let bones move this mesh</source>
        <translation>このメッシュをボーンで動かします</translation>
    </message>
    <message>
        <source>Add Morph Tag</source>
        <translation>モーフタグを追加</translation>
    </message>
    <message>
        <source>Let this mesh have morphs</source>
        <translation>このメッシュにモーフを持たせます</translation>
    </message>
    <message>
        <source>Add Selection Tag</source>
        <translation>選択タグを追加</translation>
    </message>
    <message>
        <source>Remember a selection of this mesh</source>
        <translation>このメッシュの選択を記憶します</translation>
    </message>
    <message>
        <source>Add Constraint Tag</source>
        <translation>コンストレイントタグを追加</translation>
    </message>
    <message>
        <source>Let the player of the model move this bone by a rule</source>
        <translation>モデルの再生側がこのボーンを規則で動かすようにします</translation>
    </message>
    <message>
        <source>Add RigidBody Tag</source>
        <translation>剛体タグを追加</translation>
    </message>
    <message>
        <source>Give this bone a body for the physics of the player</source>
        <translation>このボーンに物理演算用の剛体を付けます</translation>
    </message>
    <message>
        <source>Add Joint Tag</source>
        <translation>ジョイントタグを追加</translation>
    </message>
    <message>
        <source>Hold two rigid bodies together at this bone</source>
        <translation>このボーンで二つの剛体をつなぎます</translation>
    </message>
    <message>
        <source>Add Group Tag</source>
        <translation>グループタグを追加</translation>
    </message>
    <message>
        <source>Switch the nodes below this one together</source>
        <translation>このノードの下のノードをまとめて切り替えます</translation>
    </message>
    <message>
        <source>Add Text Tag</source>
        <translation>テキストタグを追加</translation>
    </message>
    <message>
        <source>Write a note on this node</source>
        <translation>このノードにメモを書きます</translation>
    </message>
    <message>
        <source>Add Float Tag</source>
        <translation>数値タグを追加</translation>
    </message>
    <message>
        <source>Keep a number on this node</source>
        <translation>このノードに数値を持たせます</translation>
    </message>
</context>
<context>
    <name>KMTagMorph</name>
    <message>
        <source>Reset All MorphValue</source>
        <translation>すべてのモーフ値をリセット</translation>
    </message>
</context>
<context>
    <name>KMTagNormal</name>
    <message>
        <source>Normal</source>
        <translation>法線</translation>
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
    <name>KMTagRigidBody</name>
    <message>
        <source>RigidBody</source>
        <translation>剛体</translation>
    </message>
    <message>
        <source>Sphere</source>
        <translation>球</translation>
    </message>
    <message>
        <source>Box</source>
        <translation>箱</translation>
    </message>
    <message>
        <source>Capsule</source>
        <translation>カプセル</translation>
    </message>
    <message>
        <source>Kinematic</source>
        <translation>ボーン追従</translation>
    </message>
    <message>
        <source>Physics</source>
        <translation>物理演算</translation>
    </message>
    <message>
        <source>PhysFix</source>
        <translation>物理演算 + ボーン位置合わせ</translation>
    </message>
</context>
<context>
    <name>KMTagSelection</name>
    <message>
        <source>Selection</source>
        <translation>選択</translation>
    </message>
    <message>
        <source>Restore Selection</source>
        <translation>選択の復元</translation>
    </message>
    <message>
        <source>%1 is locked</source>
        <translation>%1 はロックされています</translation>
    </message>
</context>
<context>
    <name>KMTagSelectionPage</name>
    <message>
        <source>Selection Info</source>
        <translation>選択の情報</translation>
    </message>
    <message>
        <source>Vertices %1, edges %2, faces %3, UV %4</source>
        <translation>頂点 %1、辺 %2、面 %3、UV %4</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>復元</translation>
    </message>
    <message>
        <source>Select what is remembered, and nothing else</source>
        <translation>記憶したものだけを選択します</translation>
    </message>
    <message>
        <source>Memory</source>
        <translation>記憶</translation>
    </message>
    <message>
        <source>Remember what is selected now</source>
        <translation>今の選択を記憶します</translation>
    </message>
    <message>
        <source>Load</source>
        <translation>読み込み</translation>
    </message>
    <message>
        <source>Select what is remembered besides the rest</source>
        <translation>記憶したものを選択に加えます</translation>
    </message>
</context>
<context>
    <name>KMTagText</name>
    <message>
        <source>Text</source>
        <translation>テキスト</translation>
    </message>
</context>
<context>
    <name>KMTagTextPage</name>
    <message>
        <source>Text</source>
        <translation>テキスト</translation>
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
    <name>KMTool</name>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>移動</translation>
    </message>
    <message>
        <source>Select elements and move them</source>
        <translation>要素を選択して移動します</translation>
    </message>
    <message>
        <source>Rotate</source>
        <translation>回転</translation>
    </message>
    <message>
        <source>Select elements and rotate them</source>
        <translation>要素を選択して回転します</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>拡大縮小</translation>
    </message>
    <message>
        <source>Select elements and scale them</source>
        <translation>要素を選択して拡大縮小します</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>選択</translation>
    </message>
    <message>
        <source>Select loops, rings, belts, patches and paths of a mesh</source>
        <translation>メッシュのループ、リング、ベルト、連続面、経路を選択します</translation>
    </message>
    <message>
        <source>Erase</source>
        <translation>消去</translation>
    </message>
    <message>
        <source>Universal</source>
        <translation>ユニバーサル</translation>
    </message>
    <message>
        <source>Select elements; move, rotate and scale them</source>
        <translation>要素を選択し、移動、回転、拡大縮小します</translation>
    </message>
    <message>
        <source>Cutter</source>
        <translation>カッター</translation>
    </message>
    <message>
        <source>Cut faces and edges</source>
        <translation>面と辺を切ります</translation>
    </message>
    <message>
        <source>SRT</source>
        <translation>SRT</translation>
    </message>
    <message>
        <source>Move, rotate and scale whole objects</source>
        <translation>オブジェクト全体を移動、回転、拡大縮小します</translation>
    </message>
    <message>
        <source>Patch</source>
        <translation>パッチ</translation>
    </message>
    <message>
        <source>Close holes with faces</source>
        <translation>穴を面でふさぎます</translation>
    </message>
    <message>
        <source>UV</source>
        <translation>UV</translation>
    </message>
    <message>
        <source>Edit texture coordinates</source>
        <translation>UV 座標を編集します</translation>
    </message>
    <message>
        <source>Magnet</source>
        <translation>マグネット</translation>
    </message>
    <message>
        <source>Pull the surface within a radius</source>
        <translation>半径内の面を引っ張ります</translation>
    </message>
    <message>
        <source>Weight</source>
        <translation>ウェイト</translation>
    </message>
    <message>
        <source>Select vertices and edges; a drag at one of them to the right or left changes how sharp subdivision leaves them</source>
        <translation>頂点と辺を選択します。その上から左右にドラッグすると、サブディビジョンでの鋭さ（折り目ウェイト）が変わります</translation>
    </message>
    <message>
        <source>Pen</source>
        <translation>ペン</translation>
    </message>
    <message>
        <source>Draw vertices and faces</source>
        <translation>頂点と面を描きます</translation>
    </message>
    <message>
        <source>Extrude</source>
        <translation>押し出し</translation>
    </message>
    <message>
        <source>Extrude the selected faces</source>
        <translation>選択した面を押し出します</translation>
    </message>
    <message>
        <source>Bevel</source>
        <translation>ベベル</translation>
    </message>
    <message>
        <source>Bevel the selected edges</source>
        <translation>選択した辺をベベルします</translation>
    </message>
    <message>
        <source>Bone</source>
        <translation>ボーン</translation>
    </message>
    <message>
        <source>Make and edit bones</source>
        <translation>ボーンを作成、編集します</translation>
    </message>
    <message>
        <source>BoneWeight</source>
        <translation>ボーンウェイト</translation>
    </message>
    <message>
        <source>Paint the weights of bones</source>
        <translation>ボーンのウェイトを塗ります</translation>
    </message>
    <message>
        <source>Animation</source>
        <translation>アニメーション</translation>
    </message>
    <message>
        <source>Pose the model</source>
        <translation>モデルにポーズをつけます</translation>
    </message>
    <message>
        <source>Normal</source>
        <translation>法線</translation>
    </message>
    <message>
        <source>Edit normals</source>
        <translation>法線を編集します</translation>
    </message>
    <message>
        <source>3DPaint</source>
        <translation>3D ペイント</translation>
    </message>
    <message>
        <source>Paint textures on the model</source>
        <translation>モデルにテクスチャを描きます</translation>
    </message>
    <message>
        <source>Sculpt</source>
        <translation>スカルプト</translation>
    </message>
    <message>
        <source>Shape the surface with brushes</source>
        <translation>ブラシで面を成形します</translation>
    </message>
    <message>
        <source>Delete the vertex, edge, face or bone that is clicked</source>
        <translation>クリックした頂点、辺、面、ボーンを削除します</translation>
    </message>
</context>
<context>
    <name>KMToolAnimation</name>
    <message>
        <source>Edit Bonekey</source>
        <translation>ボーンキーを編集</translation>
    </message>
</context>
<context>
    <name>KMToolBar</name>
    <message>
        <source>Tool Panel</source>
        <translation>ツールパネル</translation>
    </message>
    <message>
        <source>Show or hide the buttons of the tools</source>
        <translation>ツールのボタンの表示を切り替えます</translation>
    </message>
    <message>
        <source>The tool %1 isn&apos;t there yet.</source>
        <translation>ツール「%1」はまだありません。</translation>
    </message>
    <message>
        <source>Horizontal</source>
        <translation>横</translation>
    </message>
    <message>
        <source>Vertical</source>
        <translation>縦</translation>
    </message>
    <message>
        <source>Where the tools lie in the window</source>
        <translation>ウィンドウ内のツールの位置を選びます</translation>
    </message>
</context>
<context>
    <name>KMToolBone</name>
    <message>
        <source>%1 is locked</source>
        <translation>%1 はロックされています</translation>
    </message>
    <message>
        <source>%1 is hidden</source>
        <translation>%1 は非表示です</translation>
    </message>
    <message>
        <source>Make</source>
        <translation>作成</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>移動</translation>
    </message>
    <message>
        <source>There is no rig that is shown and not locked</source>
        <translation>表示されていてロックされていないリグがありません</translation>
    </message>
</context>
<context>
    <name>KMToolBoneWeight</name>
    <message>
        <source>Add</source>
        <translation>加算</translation>
    </message>
    <message>
        <source>Subtract</source>
        <translation>減算</translation>
    </message>
    <message>
        <source>Set</source>
        <translation>設定</translation>
    </message>
    <message>
        <source>Blur</source>
        <translation>ぼかし</translation>
    </message>
    <message>
        <source>Eraser</source>
        <translation>消しゴム</translation>
    </message>
    <message>
        <source>Select the mesh to be painted.</source>
        <translation>ペイントするメッシュを選択してください。</translation>
    </message>
    <message>
        <source>%1 is locked or hidden.</source>
        <translation>%1 はロックまたは非表示です。</translation>
    </message>
    <message>
        <source>Choose the bone: in the list, or by a click on it with Ctrl.</source>
        <translation>ボーンを選んでください（リスト、またはCtrl+クリック）。</translation>
    </message>
    <message>
        <source>Other Bone Not Found.</source>
        <translation>反対側のボーンが見つかりません。</translation>
    </message>
    <message>
        <source>Paint BoneWeight</source>
        <translation>ボーンウェイトをペイント</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>no weight</source>
        <translation>ウェイトなし</translation>
    </message>
    <message>
        <source>Vertex %1   %2</source>
        <translation>頂点 %1   %2</translation>
    </message>
    <message>
        <source>No bone here can be chosen: locked and hidden ones only by the list.</source>
        <translation>ここで選べるボーンはありません。ロックまたは非表示のボーンはリストから選んでください。</translation>
    </message>
    <message>
        <source>%1 gives this place its weights: what is painted here has no effect.</source>
        <translation>この場所のウェイトは %1 が決めるため、ここを塗っても効果はありません。</translation>
    </message>
</context>
<context>
    <name>KMToolExtrude</name>
    <message>
        <source>Default</source>
        <translation>標準</translation>
    </message>
    <message>
        <source>Offset</source>
        <translation>オフセット</translation>
    </message>
    <message>
        <source>Solidify</source>
        <translation>厚み付け</translation>
    </message>
    <message>
        <source>Move Vertex</source>
        <translation>頂点の移動</translation>
    </message>
</context>
<context>
    <name>KMToolSel</name>
    <message>
        <source>Node</source>
        <translation>ノード</translation>
    </message>
    <message>
        <source>Root Edge</source>
        <translation>経路の辺</translation>
    </message>
    <message>
        <source>Chained Face</source>
        <translation>連続面</translation>
    </message>
    <message>
        <source>Belt Face</source>
        <translation>ベルトの面</translation>
    </message>
    <message>
        <source>Loop Edge</source>
        <translation>ループの辺</translation>
    </message>
    <message>
        <source>Ring Edge</source>
        <translation>リングの辺</translation>
    </message>
</context>
<context>
    <name>KMToolUniv</name>
    <message>
        <source>Flow Select</source>
        <translation>なぞって選択</translation>
    </message>
    <message>
        <source>Brush Select</source>
        <translation>ブラシ選択</translation>
    </message>
</context>
<context>
    <name>KMToolWeight</name>
    <message>
        <source>Weight: %1    Change: %2</source>
        <translation>ウェイト: %1    変化: %2</translation>
    </message>
</context>
<context>
    <name>KMTransformEdit</name>
    <message>
        <source>A mesh can&apos;t have a scale of 0</source>
        <translation>メッシュの拡大を 0 にはできません</translation>
    </message>
    <message>
        <source>Edit SRT</source>
        <translation>変形の編集</translation>
    </message>
</context>
<context>
    <name>KMTransformFields</name>
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
        <translation>X、Y、Z の順に回す角度(度)</translation>
    </message>
</context>
<context>
    <name>KMTransport</name>
    <message>
        <source>Current frame</source>
        <translation>現在のフレーム</translation>
    </message>
    <message>
        <source>Frames; the marks are keys, bright ones of selected bones</source>
        <translation>フレーム。印はキーで、明るい印は選択中のボーンのものです</translation>
    </message>
</context>
<context>
    <name>KMTreeDock</name>
    <message>
        <source>Filter by name</source>
        <translation>名前で絞り込み</translation>
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
        <source>Fill the Panel</source>
        <translation>パネルに合わせる</translation>
    </message>
    <message>
        <source>Widths by Hand</source>
        <translation>幅を手動で決める</translation>
    </message>
    <message>
        <source>Fit to Contents</source>
        <translation>内容に合わせる</translation>
    </message>
    <message>
        <source>How wide the columns of the nodes are</source>
        <translation>ノードの列の幅</translation>
    </message>
    <message>
        <source>A node can hold only one %1</source>
        <translation>ノードが持てる %1 は 1 つだけです</translation>
    </message>
    <message>
        <source>Rename Tag</source>
        <translation>タグ名の変更</translation>
    </message>
    <message>
        <source>%1 can&apos;t hold another %2</source>
        <translation>%1 に %2 をこれ以上付けられません</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>複製</translation>
    </message>
</context>
<context>
    <name>KMUndoToolBar</name>
    <message>
        <source>Undo Panel</source>
        <translation>元に戻すパネル</translation>
    </message>
    <message>
        <source>Show or hide the buttons for undo and redo</source>
        <translation>元に戻すボタンとやり直しボタンを表示または隠す</translation>
    </message>
</context>
<context>
    <name>KMUnivPage</name>
    <message>
        <source>Move</source>
        <translation>移動</translation>
    </message>
    <message>
        <source>Arrows that move; right click: only them, or all kinds again</source>
        <translation>移動用の矢印。右クリック: これだけ、またはすべての種類</translation>
    </message>
    <message>
        <source>Rotate</source>
        <translation>回転</translation>
    </message>
    <message>
        <source>Balls that rotate; right click: only them, or all kinds again</source>
        <translation>回転用の球。右クリック: これだけ、またはすべての種類</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>拡大</translation>
    </message>
    <message>
        <source>Boxes that scale; right click: only them, or all kinds again</source>
        <translation>拡大用の立方体。右クリック: これだけ、またはすべての種類</translation>
    </message>
    <message>
        <source>Show Rotate Circle</source>
        <translation>回転サークルを表示</translation>
    </message>
    <message>
        <source>A circle around the handle that rotates about the direction of view</source>
        <translation>視線方向を軸に回転する、ハンドルを囲む円</translation>
    </message>
    <message>
        <source>Handle</source>
        <translation>ハンドル</translation>
    </message>
    <message>
        <source>Show the handle at the selection</source>
        <translation>選択範囲にハンドルを表示します</translation>
    </message>
    <message>
        <source>World</source>
        <translation>ワールド</translation>
    </message>
    <message>
        <source>The handle stands along the axes of the world</source>
        <translation>ハンドルをワールドの軸に合わせます</translation>
    </message>
    <message>
        <source>Local</source>
        <translation>ローカル</translation>
    </message>
    <message>
        <source>The handle stands along the axes of the current node</source>
        <translation>ハンドルを現在のノードの軸に合わせます</translation>
    </message>
    <message>
        <source>Flow</source>
        <translation>なぞる</translation>
    </message>
    <message>
        <source>A drag at an element selects all that it passes over</source>
        <translation>要素の上をドラッグすると通った要素をすべて選択します</translation>
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
    <name>KMViewBar</name>
    <message>
        <source>Vertex</source>
        <translation>頂点</translation>
    </message>
    <message>
        <source>Show vertices; right click: only them, or all kinds again</source>
        <translation>頂点を表示します。右クリック: 頂点だけ、またはすべての種類</translation>
    </message>
    <message>
        <source>Edge</source>
        <translation>辺</translation>
    </message>
    <message>
        <source>Show edges; right click: only them, or all kinds again</source>
        <translation>辺を表示します。右クリック: 辺だけ、またはすべての種類</translation>
    </message>
    <message>
        <source>Face</source>
        <translation>面</translation>
    </message>
    <message>
        <source>Show faces; right click: only them, or all kinds again</source>
        <translation>面を表示します。右クリック: 面だけ、またはすべての種類</translation>
    </message>
    <message>
        <source>Front</source>
        <translation>前面</translation>
    </message>
    <message>
        <source>Show only what faces the viewer; right click: and no elements</source>
        <translation>手前を向いたものだけを表示します。右クリック: 要素も隠す</translation>
    </message>
    <message>
        <source>Snap Self</source>
        <translation>自身にスナップ</translation>
    </message>
    <message>
        <source>Snap All</source>
        <translation>すべてにスナップ</translation>
    </message>
    <message>
        <source>Snap Modifier</source>
        <translation>モディファイアにスナップ</translation>
    </message>
    <message>
        <source>Snap Vertex</source>
        <translation>頂点にスナップ</translation>
    </message>
    <message>
        <source>Snap Edge</source>
        <translation>辺にスナップ</translation>
    </message>
    <message>
        <source>Snap Face</source>
        <translation>面にスナップ</translation>
    </message>
    <message>
        <source>Snap Merge</source>
        <translation>スナップして結合</translation>
    </message>
    <message>
        <source>Snap Stop</source>
        <translation>スナップ停止</translation>
    </message>
    <message>
        <source>View Panel</source>
        <translation>ビューパネル</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>カメラ</translation>
    </message>
    <message>
        <source>View</source>
        <translation>ビュー</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>フィルター</translation>
    </message>
    <message>
        <source>Snap</source>
        <translation>スナップ</translation>
    </message>
    <message>
        <source>Open the menu: %1</source>
        <translation>メニューを開く: %1</translation>
    </message>
    <message>
        <source>Reset Filter Settings</source>
        <translation>フィルター設定をリセット</translation>
    </message>
    <message>
        <source>Reset Snap Settings</source>
        <translation>スナップ設定をリセット</translation>
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
    <name>KMViewDrop</name>
    <message>
        <source>Assign Shader</source>
        <translation>シェーダーの割り当て</translation>
    </message>
    <message>
        <source>Apply Texture</source>
        <translation>テクスチャの適用</translation>
    </message>
</context>
<context>
    <name>KMViewFilter</name>
    <message>
        <source>Unselected Elements</source>
        <translation>選択されていない要素</translation>
    </message>
    <message>
        <source>Texture</source>
        <translation>テクスチャ</translation>
    </message>
    <message>
        <source>Current mod Edge</source>
        <translation>現在のモディファイアの辺</translation>
    </message>
    <message>
        <source>UV Texture</source>
        <translation>UV テクスチャ</translation>
    </message>
    <message>
        <source>Outline</source>
        <translation>輪郭線</translation>
    </message>
    <message>
        <source>Flat Texture</source>
        <translation>平面テクスチャ</translation>
    </message>
    <message>
        <source>Overwrite Faces</source>
        <translation>面を上書き</translation>
    </message>
    <message>
        <source>Culling current only</source>
        <translation>現在のみカリング</translation>
    </message>
    <message>
        <source>RigidBody</source>
        <translation>剛体</translation>
    </message>
    <message>
        <source>Joint</source>
        <translation>ジョイント</translation>
    </message>
    <message>
        <source>Bone Polygon</source>
        <translation>ボーンポリゴン</translation>
    </message>
</context>
<context>
    <name>KMWeightPage</name>
    <message>
        <source>Vertices</source>
        <translation>頂点</translation>
    </message>
    <message>
        <source>Edges</source>
        <translation>辺</translation>
    </message>
    <message>
        <source>0</source>
        <translation>0</translation>
    </message>
    <message>
        <source>Max</source>
        <translation>最大</translation>
    </message>
    <message>
        <source>Selected vertices get weights, and clicks find vertices</source>
        <translation>選択した頂点にウェイトを設定し、クリックで頂点を選択します</translation>
    </message>
    <message>
        <source>Selected edges get weights, and clicks find edges</source>
        <translation>選択した辺にウェイトを設定し、クリックで辺を選択します</translation>
    </message>
    <message>
        <source>Subdivision rounds what is selected</source>
        <translation>選択した要素はサブディビジョンで丸くなります</translation>
    </message>
    <message>
        <source>Subdivision leaves what is selected sharp</source>
        <translation>選択した要素はサブディビジョンしても鋭いまま残ります</translation>
    </message>
    <message>
        <source>Crease weight of what is selected; empty where several differ</source>
        <translation>選択した要素の折り目ウェイトです。異なる値が混ざっているときは空になります</translation>
    </message>
    <message>
        <source>Weight</source>
        <translation>ウェイト</translation>
    </message>
</context>
<context>
    <name>KMWeightTagPage</name>
    <message>
        <source>BoneWeightTag</source>
        <translation>ボーンウェイトタグ</translation>
    </message>
    <message>
        <source>Weights</source>
        <translation>ウェイト数</translation>
    </message>
    <message>
        <source>Bones</source>
        <translation>ボーン</translation>
    </message>
    <message>
        <source>SDEF vertices</source>
        <translation>SDEF 頂点</translation>
    </message>
    <message>
        <source>SDEF Calc Method</source>
        <translation>SDEF 計算方法</translation>
    </message>
    <message>
        <source>Parent</source>
        <translation>親</translation>
    </message>
    <message>
        <source>Child</source>
        <translation>子</translation>
    </message>
    <message>
        <source>Both</source>
        <translation>両方</translation>
    </message>
    <message>
        <source>SDEF BlendValue</source>
        <translation>SDEF ブレンド値</translation>
    </message>
    <message>
        <source>Auto Normalize</source>
        <translation>自動正規化</translation>
    </message>
</context>
<context>
    <name>MorphComAssignMorph</name>
    <message>
        <source>&quot;
already exists.
Do you want to replace it?</source>
        <translation>&quot;
は既にあります。
置き換えますか？</translation>
    </message>
    <message>
        <source>Not found a candidate meshs.</source>
        <translation>候補のメッシュが見つかりません。</translation>
    </message>
    <message>
        <source>BaseMesh</source>
        <translation>元のメッシュ</translation>
    </message>
    <message>
        <source>MorphName</source>
        <translation>モーフ名</translation>
    </message>
    <message>
        <source>OnlySelected</source>
        <translation>選択した頂点のみ</translation>
    </message>
    <message>
        <source>Ratio</source>
        <translation>比率</translation>
    </message>
</context>
<context>
    <name>NodeComAssignShader</name>
    <message>
        <source>Shader Selection not found.</source>
        <translation>シェーダーが選択されていません。</translation>
    </message>
</context>
<context>
    <name>NodeComMergeClosedVertex</name>
    <message>
        <source>Distance</source>
        <translation>距離</translation>
    </message>
    <message>
        <source>Selected Only</source>
        <translation>選択のみ</translation>
    </message>
</context>
<context>
    <name>NodeComPasteCoodinate</name>
    <message>
        <source>Copy coordinates first</source>
        <translation>先に座標をコピーしてください</translation>
    </message>
</context>
<context>
    <name>NodeComPolygonize</name>
    <message>
        <source>Primitive Selection not found.</source>
        <translation>選択中のプリミティブがありません。</translation>
    </message>
</context>
<context>
    <name>NodeComProjection</name>
    <message>
        <source>Vertex Selection not found.</source>
        <translation>頂点が選択されていません。</translation>
    </message>
</context>
<context>
    <name>NodeComViewHideFace</name>
    <message>
        <source>Node Selection not found.</source>
        <translation>選択中のノードがありません。</translation>
    </message>
</context>
<context>
    <name>NormalComAveragingNormal</name>
    <message>
        <source>Averaging Normal</source>
        <translation>法線の平均化</translation>
    </message>
    <message>
        <source>Give all corners of the selected vertices one normal</source>
        <translation>選択した頂点のすべての角に同じ法線を与えます</translation>
    </message>
</context>
<context>
    <name>NormalComCrease</name>
    <message>
        <source>Crease</source>
        <translation>折り目</translation>
    </message>
    <message>
        <source>Don&apos;t smooth normals across the selected edges</source>
        <translation>選択した辺をまたいで法線を滑らかにしません</translation>
    </message>
</context>
<context>
    <name>NormalComFixNormal</name>
    <message>
        <source>Fix Normal</source>
        <translation>法線の固定</translation>
    </message>
    <message>
        <source>Keep the normals of the selected corners as they are now</source>
        <translation>選択した角の法線を今の向きに固定します</translation>
    </message>
</context>
<context>
    <name>NormalComFlatX</name>
    <message>
        <source>Flatten to X axis</source>
        <translation>X 軸に平らにする</translation>
    </message>
    <message>
        <source>Turn the normals of the selected vertices into the plane across the X axis</source>
        <translation>選択した頂点の法線を X 軸に直交する面内に倒します</translation>
    </message>
</context>
<context>
    <name>NormalComInitializeNormal</name>
    <message>
        <source>Initialize Normal</source>
        <translation>法線の初期化</translation>
    </message>
    <message>
        <source>Go back to the computed normals</source>
        <translation>計算された法線に戻します</translation>
    </message>
</context>
<context>
    <name>NormalComSelectCrease</name>
    <message>
        <source>Select Crease</source>
        <translation>折り目の選択</translation>
    </message>
    <message>
        <source>Select the creased edges</source>
        <translation>折り目の辺を選択します</translation>
    </message>
    <message>
        <source>%1: the mesh has no creases</source>
        <translation>%1: メッシュに折り目がありません</translation>
    </message>
</context>
<context>
    <name>NormalComSymmetrize</name>
    <message>
        <source>Symmetrize Normal</source>
        <translation>法線の対称化</translation>
    </message>
    <message>
        <source>Mirror the overridden normals of the selected vertices to the other side of the mesh</source>
        <translation>選択した頂点の編集済み法線をメッシュの反対側へ鏡映します</translation>
    </message>
</context>
<context>
    <name>NormalComTest</name>
    <message>
        <source>Normal Test</source>
        <translation>法線テスト</translation>
    </message>
    <message>
        <source>Write what the normal tags of the selected meshes hold to the output</source>
        <translation>選択したメッシュの法線タグの内容を出力に書きます</translation>
    </message>
    <message>
        <source>%1: %2 creases, %3 parted faces, %4 fixed, %5 rotated</source>
        <translation>%1: 折り目 %2、分かれた面 %3、固定 %4、回転 %5</translation>
    </message>
</context>
<context>
    <name>NormalComTransfer</name>
    <message>
        <source>Transfer Normal</source>
        <translation>法線の転写</translation>
    </message>
    <message>
        <source>Take the normals at the selected edges from the nearest surface of the other selected meshes and primitives</source>
        <translation>選択した辺の法線を、ほかに選択したメッシュやプリミティブの最も近い面から取ります</translation>
    </message>
    <message>
        <source>%1: select another mesh or primitive as well, to take the normals from</source>
        <translation>%1: 法線の元になるメッシュかプリミティブも選択してください</translation>
    </message>
</context>
<context>
    <name>NormalComUncrease</name>
    <message>
        <source>Uncrease</source>
        <translation>折り目の解除</translation>
    </message>
    <message>
        <source>Smooth normals across the selected edges again</source>
        <translation>選択した辺をまたいで法線を再び滑らかにします</translation>
    </message>
</context>
<context>
    <name>NormalComUnfixNormal</name>
    <message>
        <source>Unfix Normal</source>
        <translation>法線の固定解除</translation>
    </message>
    <message>
        <source>Let fixed normals follow the surface again, from their present direction on</source>
        <translation>固定した法線を、今の向きから再び面に追従させます</translation>
    </message>
</context>
<context>
    <name>NormalComUnifyNormal</name>
    <message>
        <source>Unify Normal</source>
        <translation>法線の統一</translation>
    </message>
    <message>
        <source>Give all corners of each selected vertex one normal</source>
        <translation>選択した各頂点の角に同じ法線を与えます</translation>
    </message>
</context>
<context>
    <name>PmxAgreement</name>
    <message>
        <source>IMPORTANT NOTICE, AND AGREEMENT</source>
        <translation>重要なお知らせと同意</translation>
    </message>
    <message>
        <source>Models, motions, textures and other data may belong to somebody else. Their authors decide what may be done with them.

Before you export a model that contains work of other authors, read the terms that came with it. Don&apos;t change, combine, publish or pass on such data where its terms don&apos;t allow that, and name the authors where they ask for it.

By going on you agree to respect the rights of all authors whose data you use.</source>
        <translation>モデル、モーション、テクスチャなどのデータは、他の方の著作物である場合があります。その扱いは作者が決めます。

他の作者の作品を含むモデルを書き出す前に、付属の利用規約をお読みください。規約で認められていない改変、組み合わせ、公開、配布は行わないでください。作者名の表示が求められている場合は表示してください。

続行すると、使用するデータのすべての作者の権利を尊重することに同意したものとみなします。</translation>
    </message>
    <message>
        <source>I agree</source>
        <translation>同意する</translation>
    </message>
    <message>
        <source>canecl</source>
        <translation>キャンセル</translation>
    </message>
</context>
<context>
    <name>PmxBoneWriter</name>
    <message>
        <source>arm</source>
        <translation>腕</translation>
    </message>
</context>
<context>
    <name>PmxExchange</name>
    <message>
        <source>scale</source>
        <translation>スケール</translation>
    </message>
    <message>
        <source>Import Normals</source>
        <translation>法線を読み込む</translation>
    </message>
    <message>
        <source>MMD Extend Model File (*.pmx)</source>
        <translation>MMD 拡張モデルファイル (*.pmx)</translation>
    </message>
</context>
<context>
    <name>PmxExport</name>
    <message>
        <source>view Nodes Only</source>
        <translation>表示ノードのみ</translation>
    </message>
    <message>
        <source>freeze Mods</source>
        <translation>モディファイアを適用</translation>
    </message>
    <message>
        <source>Skip Hide Face</source>
        <translation>非表示の面を除く</translation>
    </message>
    <message>
        <source>Use EnvOutline Value</source>
        <translation>環境の輪郭線の値を使う</translation>
    </message>
    <message>
        <source>Skip Physics</source>
        <translation>物理演算を除く</translation>
    </message>
    <message>
        <source>Don&apos;t Confirm Overwrite</source>
        <translation>上書きを確認しない</translation>
    </message>
    <message>
        <source>Open with</source>
        <translation>書き出し後に開く</translation>
    </message>
    <message>
        <source>To Relative Path</source>
        <translation>相対パスにする</translation>
    </message>
    <message>
        <source>convert Operation Axis</source>
        <translation>操作軸を変換</translation>
    </message>
    <message>
        <source>PSD and CLIP to PNG</source>
        <translation>PSD と CLIP を PNG に変換</translation>
    </message>
    <message>
        <source>Development </source>
        <translation>開発用 </translation>
    </message>
    <message>
        <source>Reset Morph</source>
        <translation>モーフをリセット</translation>
    </message>
    <message>
        <source>File I/O</source>
        <translation>ファイル入出力</translation>
    </message>
    <message>
        <source>scale</source>
        <translation>スケール</translation>
    </message>
    <message>
        <source>RootBone</source>
        <translation>RootBone</translation>
    </message>
    <message>
        <source>The rig is posed: the surface is written in this pose, the bones at rest. &quot;Disable All BoneMod&quot; writes it at rest.</source>
        <translation>リグにポーズが付いています。表面はこのポーズのまま、ボーンは初期姿勢で書き出されます。「ボーン変形をすべて無効」を実行すると、表面も初期姿勢で書き出されます。</translation>
    </message>
</context>
<context>
    <name>PmxExporter</name>
    <message>
        <source>RootBone not found.</source>
        <translation>ルートボーンが見つかりません。</translation>
    </message>
    <message>
        <source>There is no file name</source>
        <translation>ファイル名がありません</translation>
    </message>
    <message>
        <source>The file can&apos;t be written: %1</source>
        <translation>ファイルに書き込めません: %1</translation>
    </message>
</context>
<context>
    <name>PmxImporter</name>
    <message>
        <source>The file can&apos;t be read to its end: %1</source>
        <translation>ファイルを最後まで読み込めません: %1</translation>
    </message>
    <message>
        <source>ImportPMX</source>
        <translation>PMX の読み込み</translation>
    </message>
    <message>
        <source>%1 places or numbers left all bounds on their way in, and became 0</source>
        <translation>読み込み中に範囲を超えた %1 個の位置または数値を 0 にしました</translation>
    </message>
</context>
<context>
    <name>PmxReader</name>
    <message>
        <source>header</source>
        <translation>ヘッダー</translation>
    </message>
    <message>
        <source>the file doesn&apos;t begin as a PMX file does</source>
        <translation>ファイルの先頭が PMX のものではありません</translation>
    </message>
    <message>
        <source>its texts are in UTF-8, which this program takes for UTF-16</source>
        <translation>文字列が UTF-8 ですが、このプログラムは UTF-16 として読みます</translation>
    </message>
    <message>
        <source>The texts are in UTF-8 and come out as other characters</source>
        <translation>文字列が UTF-8 のため、別の文字になります</translation>
    </message>
    <message>
        <source>Indices of %1 bytes can&apos;t be</source>
        <translation>%1 バイトのインデックスはありえません</translation>
    </message>
    <message>
        <source>%1 records are more than the file can be believed to hold</source>
        <translation>%1 件のレコードは、このファイルには多すぎます</translation>
    </message>
    <message>
        <source>vertices</source>
        <translation>頂点</translation>
    </message>
    <message>
        <source>The deform type %1, of which only 0 to 3 can be read</source>
        <translation>変形方式 %1 です。読み込めるのは 0 から 3 だけです</translation>
    </message>
    <message>
        <source>The index %1 for a bone</source>
        <translation>ボーンのインデックスが %1 です</translation>
    </message>
    <message>
        <source>faces</source>
        <translation>面</translation>
    </message>
    <message>
        <source>the faces have %1 corners, which make no triangles</source>
        <translation>面の角が %1 個で、三角形になりません</translation>
    </message>
    <message>
        <source>textures</source>
        <translation>テクスチャ</translation>
    </message>
    <message>
        <source>materials</source>
        <translation>材質</translation>
    </message>
    <message>
        <source>the material %1 has a shared toon, told in one byte where this program looks for %2</source>
        <translation>材質 %1 の共有トゥーンは 1 バイトですが、このプログラムは %2 バイトを読みます</translation>
    </message>
    <message>
        <source>The material has %1 face corners, but only %2 are left</source>
        <translation>材質の面の角は %1 個ですが、残りは %2 個です</translation>
    </message>
    <message>
        <source>bones</source>
        <translation>ボーン</translation>
    </message>
    <message>
        <source>the bone %1 inherits rotation and movement, told in one record where this program looks for two</source>
        <translation>ボーン %1 は回転と移動の両方を付与されていて、レコードは 1 つですが、このプログラムは 2 つを読みます</translation>
    </message>
    <message>
        <source>The bone %1, but there are only %2</source>
        <translation>ボーン %1 を指していますが、%2 個しかありません</translation>
    </message>
    <message>
        <source>morphs</source>
        <translation>モーフ</translation>
    </message>
    <message>
        <source>a morph of the type %1 was taken for one of materials</source>
        <translation>種類 %1 のモーフを材質モーフとして読みました</translation>
    </message>
    <message>
        <source>display frames</source>
        <translation>表示枠</translation>
    </message>
    <message>
        <source>An item of the unknown kind %1</source>
        <translation>不明な種類 %1 の項目です</translation>
    </message>
    <message>
        <source>rigid bodies</source>
        <translation>剛体</translation>
    </message>
    <message>
        <source>joints</source>
        <translation>ジョイント</translation>
    </message>
</context>
<context>
    <name>PmxRigBuilder</name>
    <message>
        <source>The bone %1 stands below itself and was put at the top</source>
        <translation>ボーン %1 は自分自身の下にあるため、最上位に置きました</translation>
    </message>
    <message>
        <source>The bone %1 lies too deep in its rig and was moved up</source>
        <translation>ボーン %1 は階層が深すぎるため、上に移しました</translation>
    </message>
    <message>
        <source>The rigid body %1 (%2 of %3) has the unknown %4 %5</source>
        <translation>剛体 %1（%2 / %3）の%4 %5 は不明です</translation>
    </message>
    <message>
        <source>shape</source>
        <translation>形状</translation>
    </message>
    <message>
        <source>mode</source>
        <translation>物理演算</translation>
    </message>
    <message>
        <source>group</source>
        <translation>グループ</translation>
    </message>
</context>
<context>
    <name>PmxStream</name>
    <message>
        <source>The file ends too early</source>
        <translation>ファイルが途中で終わっています</translation>
    </message>
    <message>
        <source>%1. It may come from this: %2</source>
        <translation>%1。原因として考えられること: %2</translation>
    </message>
    <message>
        <source>A number that is not finite was replaced</source>
        <translation>有限でない数値を置き換えました</translation>
    </message>
    <message>
        <source>A text of %1 bytes can&apos;t be: its characters take two each</source>
        <translation>%1 バイトの文字列はありえません。1 文字は 2 バイトです</translation>
    </message>
    <message>
        <source>A text of %1 bytes, but only %2 are left</source>
        <translation>%1 バイトの文字列がありますが、残りは %2 バイトです</translation>
    </message>
    <message>
        <source>The index %1, but there are only %2</source>
        <translation>インデックス %1 がありますが、%2 個しかありません</translation>
    </message>
    <message>
        <source>%1 records are promised, but only %2 bytes are left</source>
        <translation>%1 件のレコードがあるはずですが、残りは %2 バイトです</translation>
    </message>
</context>
<context>
    <name>PmxTextures</name>
    <message>
        <source> is already exists.
Overwrite the current file?</source>
        <translation> は既に存在します。
現在のファイルを上書きしますか?</translation>
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
    <name>SelComAssignShader</name>
    <message>
        <source>Shader Selection not found.</source>
        <translation>シェーダーが選択されていません。</translation>
    </message>
</context>
<context>
    <name>SelComDivideEdge</name>
    <message>
        <source>division</source>
        <translation>分割数</translation>
    </message>
</context>
<context>
    <name>SelComSymmetrizingVertex</name>
    <message>
        <source>Vertex Selection not found.</source>
        <translation>頂点が選択されていません。</translation>
    </message>
    <message>
        <source>illegal vertex position.</source>
        <translation>頂点の位置が正しくありません。</translation>
    </message>
</context>
<context>
    <name>VmdImporter</name>
    <message>
        <source>The file ends inside of its header, which takes %1 bytes (byte %2).</source>
        <translation>ファイルが %1 バイトのヘッダーの途中で終わっています (バイト %2)。</translation>
    </message>
    <message>
        <source>The file ends before the count of its bone keys (byte %1).</source>
        <translation>ファイルがボーンキーの数の前で終わっています (バイト %1)。</translation>
    </message>
    <message>
        <source>The file says that it has %1 bone keys, but it ends in number %2 (byte %3).</source>
        <translation>ファイルにはボーンキーが %1 個あるはずですが、%2 個目で終わっています (バイト %3)。</translation>
    </message>
    <message>
        <source>Bone key %1 of %2 can&apos;t be read (byte %3).</source>
        <translation>ボーンキー %1 / %2 を読み込めません (バイト %3)。</translation>
    </message>
    <message>
        <source>filed load header.</source>
        <translation>ヘッダーを読み込めませんでした。</translation>
    </message>
    <message>
        <source>filed load bone keys.</source>
        <translation>ボーンキーを読み込めませんでした。</translation>
    </message>
    <message>
        <source>Import VMD</source>
        <translation>VMD のインポート</translation>
    </message>
    <message>
        <source>Keys with values that can&apos;t be used: %1. The bones stay at rest there.</source>
        <translation>使えない値を持つキー: %1 個。その部分のボーンは初期姿勢のままです。</translation>
    </message>
    <message>
        <source>MMD Motion Data (*.vmd)</source>
        <translation>MMD モーションデータ (*.vmd)</translation>
    </message>
</context>
<context>
    <name>VpdImporter</name>
    <message>
        <source>Import VPD</source>
        <translation>VPD のインポート</translation>
    </message>
    <message>
        <source>MMD Pose Data (*.vpd)</source>
        <translation>MMD ポーズデータ (*.vpd)</translation>
    </message>
</context>
<context>
    <name>addBoneCommand</name>
    <message>
        <source>Add Bone</source>
        <translation>ボーンを追加</translation>
    </message>
</context>
<context>
    <name>addBoneKeyCommand</name>
    <message>
        <source>Edit BoneKey</source>
        <translation>ボーンキーを編集</translation>
    </message>
</context>
<context>
    <name>addBoneWeightCommand</name>
    <message>
        <source>Add BoneWeight</source>
        <translation>ボーンウェイトを追加</translation>
    </message>
</context>
<context>
    <name>addDisplayItemCommand</name>
    <message>
        <source>Add DisplayItem</source>
        <translation>表示項目の追加</translation>
    </message>
</context>
<context>
    <name>addDisplayNodeCommand</name>
    <message>
        <source>Add DisplayNode</source>
        <translation>表示枠の追加</translation>
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
    <name>addMorphCommand</name>
    <message>
        <source>Add MorphNode</source>
        <translation>モーフを追加</translation>
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
    <name>blueprintSetParamCommand</name>
    <message>
        <source>Assign Texture</source>
        <translation>テクスチャの割り当て</translation>
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
    <name>buildModifierCommand</name>
    <message>
        <source>Build Modifier</source>
        <translation>モディファイアを構築</translation>
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
    <name>creaseNormalCommand</name>
    <message>
        <source>Edit Normal</source>
        <translation>法線の編集</translation>
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
    <name>deleteBoneCommand</name>
    <message>
        <source>Delete Bone</source>
        <translation>ボーンを削除</translation>
    </message>
</context>
<context>
    <name>deleteBoneWeightCommand</name>
    <message>
        <source>Delete BoneWeight</source>
        <translation>ボーンウェイトを削除</translation>
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
    <name>editBoneGeometryCommand</name>
    <message>
        <source>Edit Bone</source>
        <translation>ボーンを編集</translation>
    </message>
</context>
<context>
    <name>editBoneLimitHPBCommand</name>
    <message>
        <source>Edit Bone</source>
        <translation>ボーンを編集</translation>
    </message>
</context>
<context>
    <name>editBoneViewTypeCommand</name>
    <message>
        <source>Edit Bone</source>
        <translation>ボーンを編集</translation>
    </message>
</context>
<context>
    <name>editBoneWeightCommand</name>
    <message>
        <source>Edit BoneWeight</source>
        <translation>ボーンウェイトを編集</translation>
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
    <name>editModAnchorCommand</name>
    <message>
        <source>Edit AnchorNode</source>
        <translation>アンカーノードの編集</translation>
    </message>
</context>
<context>
    <name>editModClonerCommand</name>
    <message>
        <source>Edit ClonerNode</source>
        <translation>クローナーを編集</translation>
    </message>
</context>
<context>
    <name>editModFFDCommand</name>
    <message>
        <source>Edit FFDNode</source>
        <translation>FFD を編集</translation>
    </message>
</context>
<context>
    <name>editModPipeCommand</name>
    <message>
        <source>Edit PipeNode</source>
        <translation>パイプを編集</translation>
    </message>
</context>
<context>
    <name>editModSdvCommand</name>
    <message>
        <source>Edit SdvNode</source>
        <translation>サブディビジョンを編集</translation>
    </message>
</context>
<context>
    <name>editModSolCommand</name>
    <message>
        <source>Edit SolidifyNode</source>
        <translation>厚み付けを編集</translation>
    </message>
</context>
<context>
    <name>editModSymCommand</name>
    <message>
        <source>Edit SymNode</source>
        <translation>対称を編集</translation>
    </message>
</context>
<context>
    <name>editMorphDataCommand</name>
    <message>
        <source>Edit MorphNode</source>
        <translation>モーフを編集</translation>
    </message>
</context>
<context>
    <name>editMorphTypeCommand</name>
    <message>
        <source>Edit MorphNode</source>
        <translation>モーフを編集</translation>
    </message>
</context>
<context>
    <name>editMorphValueCommand</name>
    <message>
        <source>Edit MorphNode</source>
        <translation>モーフを編集</translation>
    </message>
</context>
<context>
    <name>editNormalCommand</name>
    <message>
        <source>Edit Normal</source>
        <translation>法線の編集</translation>
    </message>
</context>
<context>
    <name>editPrim3DTextCommand</name>
    <message>
        <source>Edit 3DText</source>
        <translation>3D テキストの編集</translation>
    </message>
</context>
<context>
    <name>editPrimCubeCommand</name>
    <message>
        <source>Edit Cube</source>
        <translation>立方体の編集</translation>
    </message>
</context>
<context>
    <name>editPrimCylinderCommand</name>
    <message>
        <source>Edit Cylinder</source>
        <translation>円柱の編集</translation>
    </message>
</context>
<context>
    <name>editPrimPlaneCommand</name>
    <message>
        <source>Edit Plane</source>
        <translation>平面の編集</translation>
    </message>
</context>
<context>
    <name>editPrimSVGCommand</name>
    <message>
        <source>Edit SVG</source>
        <translation>SVG の編集</translation>
    </message>
</context>
<context>
    <name>editPrimSphereCommand</name>
    <message>
        <source>Edit Sphere</source>
        <translation>球の編集</translation>
    </message>
</context>
<context>
    <name>editPrimTorusCommand</name>
    <message>
        <source>Edit Torus</source>
        <translation>トーラスの編集</translation>
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
    <name>editTagBoneWeightCommand</name>
    <message>
        <source>Edit BoneWeight</source>
        <translation>ボーンウェイトを編集</translation>
    </message>
</context>
<context>
    <name>editTagConstraintCommand</name>
    <message>
        <source>Edit Constraint</source>
        <translation>コンストレイントの編集</translation>
    </message>
</context>
<context>
    <name>editTagFloatCommand</name>
    <message>
        <source>Edit Tag</source>
        <translation>タグの編集</translation>
    </message>
</context>
<context>
    <name>editTagGroupCommand</name>
    <message>
        <source>Edit Group</source>
        <translation>グループの編集</translation>
    </message>
</context>
<context>
    <name>editTagJointCommand</name>
    <message>
        <source>Edit Joint</source>
        <translation>ジョイントの編集</translation>
    </message>
</context>
<context>
    <name>editTagRigidBodyCommand</name>
    <message>
        <source>Edit RigidBody</source>
        <translation>剛体の編集</translation>
    </message>
</context>
<context>
    <name>editTagSelectionCommand</name>
    <message>
        <source>Edit Tag</source>
        <translation>タグの編集</translation>
    </message>
</context>
<context>
    <name>editTagTextCommand</name>
    <message>
        <source>Edit Tag</source>
        <translation>タグの編集</translation>
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
    <name>kmanimationpanel</name>
    <message>
        <source>Animation Panel</source>
        <translation>アニメーションパネル</translation>
    </message>
    <message>
        <source>Show or hide the playback of the motion</source>
        <translation>モーションの再生を表示または隠します</translation>
    </message>
</context>
<context>
    <name>kmanimationwidget</name>
    <message>
        <source>Animation</source>
        <translation>アニメーション</translation>
    </message>
    <message>
        <source>Rotation</source>
        <translation>回転</translation>
    </message>
    <message>
        <source>Set Key</source>
        <translation>キーを設定</translation>
    </message>
    <message>
        <source>Keep the pose of the current bone as its key at this frame</source>
        <translation>現在のボーンのポーズをこのフレームのキーにします</translation>
    </message>
    <message>
        <source>Remove Key</source>
        <translation>キーを削除</translation>
    </message>
    <message>
        <source>Take away the key that the current bone has at this frame</source>
        <translation>現在のボーンのこのフレームのキーを削除します</translation>
    </message>
    <message>
        <source>No bone is selected</source>
        <translation>ボーンが選択されていません</translation>
    </message>
    <message>
        <source>Key of %1 at frame %2</source>
        <translation>%1 のフレーム %2 のキー</translation>
    </message>
    <message>
        <source>%1 has no key at frame %2</source>
        <translation>%1 のフレーム %2 にはキーがありません</translation>
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
    <name>kmbonewidget</name>
    <message>
        <source>Bones</source>
        <translation>ボーン</translation>
    </message>
    <message>
        <source>The rig whose bones are shown</source>
        <translation>ボーンを表示するリグ</translation>
    </message>
    <message>
        <source>Bones are copied by Duplicate, and moved to another rig by their menu</source>
        <translation>ボーンは「複製」でコピーし、ほかのリグへはメニューから移動します</translation>
    </message>
    <message>
        <source>Move to Rig</source>
        <translation>リグへ移動</translation>
    </message>
    <message>
        <source>Move the selected bones with all below them to this rig</source>
        <translation>選択中のボーンを配下ごとこのリグへ移動します</translation>
    </message>
    <message>
        <source>%1 is locked</source>
        <translation>%1 はロックされています</translation>
    </message>
</context>
<context>
    <name>kmcoodinatewidget</name>
    <message>
        <source>Coordinate</source>
        <translation>座標</translation>
    </message>
    <message>
        <source>Selection</source>
        <translation>選択</translation>
    </message>
    <message>
        <source>Node</source>
        <translation>ノード</translation>
    </message>
    <message>
        <source>What the numbers are of while elements of a mesh are selected</source>
        <translation>メッシュの要素を選択している間、どちらの数値を示すか</translation>
    </message>
    <message>
        <source>Selected vertices: %1</source>
        <translation>選択した頂点: %1</translation>
    </message>
    <message>
        <source>Turn by</source>
        <translation>回す角度</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>サイズ</translation>
    </message>
    <message>
        <source>Nothing with a place is selected</source>
        <translation>位置を持つものが選択されていません</translation>
    </message>
    <message>
        <source>Rotation</source>
        <translation>回転</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>拡大</translation>
    </message>
</context>
<context>
    <name>kmgriddialog</name>
    <message>
        <source>Grid Settings</source>
        <translation>グリッド設定</translation>
    </message>
    <message>
        <source>grid row</source>
        <translation>グリッドの行数</translation>
    </message>
    <message>
        <source>grid Space</source>
        <translation>グリッドの間隔</translation>
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
        <source>Selection(&amp;S)</source>
        <translation>選択(&amp;S)</translation>
    </message>
    <message>
        <source>Convert Selection</source>
        <translation>選択の変換</translation>
    </message>
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
        <source>Copy</source>
        <translation>コピー</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>貼り付け</translation>
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
        <source>Setup</source>
        <translation>セットアップ</translation>
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
        <source>Copy the selected faces or nodes and delete them</source>
        <translation>選択した面またはノードをコピーして削除します</translation>
    </message>
    <message>
        <source>Copy the selected faces, or the selected nodes</source>
        <translation>選択した面、または選択したノードをコピーします</translation>
    </message>
    <message>
        <source>Insert the copied faces or nodes</source>
        <translation>コピーした面またはノードを挿入します</translation>
    </message>
    <message>
        <source>Insert Paste</source>
        <translation>挿入貼り付け</translation>
    </message>
    <message>
        <source>Insert the copied faces and join them to vertices at the same place</source>
        <translation>コピーした面を挿入し、同じ位置の頂点につなぎます</translation>
    </message>
    <message>
        <source>Mirror Paste</source>
        <translation>ミラー貼り付け</translation>
    </message>
    <message>
        <source>Insert the copied faces on the other side of the symmetry plane</source>
        <translation>コピーした面を対称面の反対側に挿入します</translation>
    </message>
    <message>
        <source>Delete the selected elements, or the selected nodes</source>
        <translation>選択した要素、または選択したノードを削除します</translation>
    </message>
    <message>
        <source>Mesh</source>
        <translation>メッシュ</translation>
    </message>
    <message>
        <source>Add an empty mesh</source>
        <translation>空のメッシュを追加します</translation>
    </message>
    <message>
        <source>Sphere</source>
        <translation>球</translation>
    </message>
    <message>
        <source>Add a sphere</source>
        <translation>球を追加します</translation>
    </message>
    <message>
        <source>Cube</source>
        <translation>立方体</translation>
    </message>
    <message>
        <source>Add a cube</source>
        <translation>立方体を追加します</translation>
    </message>
    <message>
        <source>Cylinder</source>
        <translation>円柱</translation>
    </message>
    <message>
        <source>Add a cylinder</source>
        <translation>円柱を追加します</translation>
    </message>
    <message>
        <source>Plane</source>
        <translation>平面</translation>
    </message>
    <message>
        <source>Add a plane</source>
        <translation>平面を追加します</translation>
    </message>
    <message>
        <source>Torus</source>
        <translation>トーラス</translation>
    </message>
    <message>
        <source>Add a torus</source>
        <translation>トーラスを追加します</translation>
    </message>
    <message>
        <source>3DText</source>
        <translation>3D テキスト</translation>
    </message>
    <message>
        <source>Add a text as a body</source>
        <translation>テキストを立体として追加します</translation>
    </message>
    <message>
        <source>SVG</source>
        <translation>SVG</translation>
    </message>
    <message>
        <source>Add the shapes of an SVG drawing</source>
        <translation>SVG 図面の形を追加します</translation>
    </message>
    <message>
        <source>%1 already exists.</source>
        <translation>%1 はすでにあります。</translation>
    </message>
    <message>
        <source>Do you want to replace it?</source>
        <translation>置き換えますか?</translation>
    </message>
    <message>
        <source>Normal(&amp;L)</source>
        <translation>法線(&amp;L)</translation>
    </message>
    <message>
        <source>Primitive</source>
        <translation>プリミティブ</translation>
    </message>
    <message>
        <source>Single View</source>
        <translation>1 画面</translation>
    </message>
    <message>
        <source>Show one view, in perspective</source>
        <translation>透視ビューを 1 つ表示します</translation>
    </message>
    <message>
        <source>Dual View</source>
        <translation>2 画面</translation>
    </message>
    <message>
        <source>Show the plane of the texture beside the view in perspective</source>
        <translation>透視ビューの横に UV ビューを表示します</translation>
    </message>
    <message>
        <source>Quad View</source>
        <translation>4 画面</translation>
    </message>
    <message>
        <source>Show the views from above, from the front and from the right beside the one in perspective</source>
        <translation>上、前、右のビューを透視ビューと並べて表示します</translation>
    </message>
    <message>
        <source>Front</source>
        <translation>前面</translation>
    </message>
    <message>
        <source>Turn the view in perspective to the front of the model</source>
        <translation>透視ビューをモデルの前面に向けます</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>背面</translation>
    </message>
    <message>
        <source>Turn the view in perspective to the back of the model</source>
        <translation>透視ビューをモデルの背面に向けます</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>右</translation>
    </message>
    <message>
        <source>Turn the view in perspective to the right side</source>
        <translation>透視ビューを右側面に向けます</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>左</translation>
    </message>
    <message>
        <source>Turn the view in perspective to the left side</source>
        <translation>透視ビューを左側面に向けます</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>上</translation>
    </message>
    <message>
        <source>Turn the view in perspective to look down on the model</source>
        <translation>透視ビューでモデルを上から見ます</translation>
    </message>
    <message>
        <source>Bottom</source>
        <translation>下</translation>
    </message>
    <message>
        <source>Turn the view in perspective to look up at the model</source>
        <translation>透視ビューでモデルを下から見ます</translation>
    </message>
    <message>
        <source>Ortho / Opposite Side</source>
        <translation>平行投影 / 反対側</translation>
    </message>
    <message>
        <source>Switch the current view between perspective and orthographic, a fixed one to the other side</source>
        <translation>現在のビューの透視投影と平行投影を切り替えます。固定ビューは反対側に切り替えます</translation>
    </message>
    <message>
        <source>Reset Camera</source>
        <translation>カメラをリセット</translation>
    </message>
    <message>
        <source>Bring the camera of the current view back to where it was at first</source>
        <translation>現在のビューのカメラを初期位置に戻します</translation>
    </message>
    <message>
        <source>Auto Ortho</source>
        <translation>自動平行投影</translation>
    </message>
    <message>
        <source>Become orthographic whenever the view is turned to a standard direction</source>
        <translation>ビューを標準の方向に向けたときに平行投影にします</translation>
    </message>
    <message>
        <source>Centering</source>
        <translation>中央に表示</translation>
    </message>
    <message>
        <source>Center Window: bring the selection, or the current node, to the middle of the view</source>
        <translation>選択範囲または現在のノードをビューの中央に表示します</translation>
    </message>
    <message>
        <source>Show Texture</source>
        <translation>テクスチャを表示</translation>
    </message>
    <message>
        <source>Draw the model with its textures</source>
        <translation>モデルをテクスチャ付きで表示します</translation>
    </message>
    <message>
        <source>Show Grid</source>
        <translation>グリッドを表示</translation>
    </message>
    <message>
        <source>Show or hide the grid of the current view</source>
        <translation>現在のビューのグリッドの表示を切り替えます</translation>
    </message>
    <message>
        <source>Grid Setting</source>
        <translation>グリッド設定</translation>
    </message>
    <message>
        <source>Say how many cells the grid has and how large they are</source>
        <translation>グリッドの数と大きさを決めます</translation>
    </message>
    <message>
        <source>Zen Mode</source>
        <translation>集中モード</translation>
    </message>
    <message>
        <source>Show the views alone, and all the rest again as it was</source>
        <translation>ビューだけを表示。もう一度で元の配置に戻す</translation>
    </message>
    <message>
        <source>Panel Index</source>
        <translation>パネル一覧</translation>
    </message>
    <message>
        <source>Fold out a list of panels and bring one of them up</source>
        <translation>パネルの一覧を開いて、選んだものを前面に出す</translation>
    </message>
    <message>
        <source>Keys and Mouse</source>
        <translation>キーとマウス</translation>
    </message>
    <message>
        <source>What the keys and the mouse do</source>
        <translation>キーとマウスの働き</translation>
    </message>
    <message>
        <source>Online Manual</source>
        <translation>オンラインマニュアル</translation>
    </message>
    <message>
        <source>Open the manual in the browser</source>
        <translation>マニュアルをブラウザで開く</translation>
    </message>
    <message>
        <source>Check Update</source>
        <translation>更新の確認</translation>
    </message>
    <message>
        <source>Look in the browser whether there is a newer version</source>
        <translation>新しいバージョンがあるかブラウザで確認する</translation>
    </message>
    <message>
        <source>BenchMark</source>
        <translation>ベンチマーク</translation>
    </message>
    <message>
        <source>Measure how fast a scene of known size is drawn</source>
        <translation>決まった大きさのシーンの描画速度を測る</translation>
    </message>
    <message>
        <source>Debug</source>
        <translation>デバッグ</translation>
    </message>
    <message>
        <source>Write to the output what a report of a fault should say about this program and machine</source>
        <translation>不具合の報告に必要なプログラムと環境の情報を出力に書く</translation>
    </message>
    <message>
        <source>No address of an online manual is known to this version.</source>
        <translation>このバージョンにはオンラインマニュアルのアドレスが設定されていません。</translation>
    </message>
    <message>
        <source>The page &quot;%1&quot; of this menu lists what the keys and the mouse do.</source>
        <translation>キーとマウスの働きは、このメニューの「%1」にあります。</translation>
    </message>
    <message>
        <source>No address to ask for a newer version is known to this version.</source>
        <translation>このバージョンには更新を確認するアドレスが設定されていません。</translation>
    </message>
    <message>
        <source>You are running version %1.</source>
        <translation>現在のバージョンは%1です。</translation>
    </message>
    <message>
        <source>Measuring...</source>
        <translation>測定中...</translation>
    </message>
    <message>
        <source>Nothing could be drawn: there is no OpenGL.</source>
        <translation>描画できませんでした: OpenGLがありません。</translation>
    </message>
    <message>
        <source>%1 frames in %2 milliseconds</source>
        <translation>%1フレーム、%2ミリ秒</translation>
    </message>
    <message>
        <source>%1 milliseconds a frame, %2 frames a second.
%3 faces, %4 x %5 pixels, each picture read back.</source>
        <translation>1フレーム%1ミリ秒、毎秒%2フレーム。
面%3個、%4 x %5ピクセル、画像の読み戻しを含みます。</translation>
    </message>
    <message>
        <source>View(&amp;V)</source>
        <translation>ビュー(&amp;V)</translation>
    </message>
    <message>
        <source>Attribute</source>
        <translation>属性</translation>
    </message>
    <message>
        <source>Nodes</source>
        <translation>ノード</translation>
    </message>
    <message>
        <source>Shader &amp; Texture</source>
        <translation>シェーダーとテクスチャ</translation>
    </message>
    <message>
        <source>History</source>
        <translation>履歴</translation>
    </message>
    <message>
        <source>%1 brings the panels back</source>
        <translation>%1でパネルが戻ります</translation>
    </message>
    <message>
        <source>Nothing was deleted: the selected elements are of a kind that the edit filter leaves out, or belong to a primitive or a modifier</source>
        <translation>何も削除しませんでした: 選択した要素は編集フィルターで除外されているか、プリミティブまたはモディファイアのものです</translation>
    </message>
    <message>
        <source>kelmo Model File...</source>
        <translation>kelmo モデルファイル...</translation>
    </message>
    <message>
        <source>Add what a model file holds to the document; this ends the history</source>
        <translation>モデルファイルの内容をドキュメントに追加します。履歴は消去されます</translation>
    </message>
    <message>
        <source>KELMO ver1 compatibility...</source>
        <translation>KELMO ver1 互換...</translation>
    </message>
    <message>
        <source>Write the document in the form of the first release</source>
        <translation>最初のリリースの形式でドキュメントを書き出します</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>インポート</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>エクスポート</translation>
    </message>
    <message>
        <source>Settings of the views</source>
        <translation>ビューの設定</translation>
    </message>
    <message>
        <source>Cameras</source>
        <translation>カメラ</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>倍率</translation>
    </message>
    <message>
        <source>Import File</source>
        <translation>ファイルのインポート</translation>
    </message>
    <message>
        <source>Export File</source>
        <translation>ファイルのエクスポート</translation>
    </message>
    <message>
        <source>KELMO ver1 compatibility(*.kmd)</source>
        <translation>KELMO ver1 互換(*.kmd)</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>ツール</translation>
    </message>
    <message>
        <source>Bone</source>
        <translation>ボーン</translation>
    </message>
    <message>
        <source>Add a bone that goes on from the selected one</source>
        <translation>選択中のボーンに続くボーンを追加します</translation>
    </message>
    <message>
        <source>Subdivision</source>
        <translation>サブディビジョン</translation>
    </message>
    <message>
        <source>Put a smooth surface over the mesh</source>
        <translation>メッシュに滑らかな曲面をかけます</translation>
    </message>
    <message>
        <source>Symmetry</source>
        <translation>対称</translation>
    </message>
    <message>
        <source>Join the mesh with its mirror image</source>
        <translation>メッシュをその鏡像とつなぎます</translation>
    </message>
    <message>
        <source>Pipe</source>
        <translation>パイプ</translation>
    </message>
    <message>
        <source>Make tubes of the lines of the mesh</source>
        <translation>メッシュの線を管にします</translation>
    </message>
    <message>
        <source>FFD</source>
        <translation>FFD</translation>
    </message>
    <message>
        <source>Bend the mesh by the points of a lattice</source>
        <translation>格子の点でメッシュを曲げます</translation>
    </message>
    <message>
        <source>Solidify</source>
        <translation>厚み付け</translation>
    </message>
    <message>
        <source>Give the surface of the mesh a thickness</source>
        <translation>メッシュの面に厚みを付けます</translation>
    </message>
    <message>
        <source>Cloner</source>
        <translation>クローナー</translation>
    </message>
    <message>
        <source>Repeat the mesh in steps</source>
        <translation>メッシュを段階的に繰り返します</translation>
    </message>
    <message>
        <source>%1 isn&apos;t there any more.</source>
        <translation>%1 はもうありません。</translation>
    </message>
    <message>
        <source>Bone(&amp;B)</source>
        <translation>ボーン(&amp;B)</translation>
    </message>
    <message>
        <source>Modifiers</source>
        <translation>モディファイア</translation>
    </message>
    <message>
        <source>Nodes(&amp;N)</source>
        <translation>ノード(&amp;N)</translation>
    </message>
    <message>
        <source>Operation Panel</source>
        <translation>操作パネル</translation>
    </message>
    <message>
        <source>Toggle Dock Widgets</source>
        <translation>ドックパネルの切り替え</translation>
    </message>
    <message>
        <source>Hide all panels, or bring those back that were hidden together</source>
        <translation>すべてのパネルを隠すか、まとめて隠したパネルを戻します</translation>
    </message>
    <message>
        <source>Motion</source>
        <translation>モーション</translation>
    </message>
    <message>
        <source>BoneDeform</source>
        <translation>ボーンデフォーム</translation>
    </message>
    <message>
        <source>Let the bones that the mesh is weighted to move it</source>
        <translation>ウェイトの付いたボーンでメッシュを動かします</translation>
    </message>
    <message>
        <source>BoneWeight(&amp;T)</source>
        <translation>ボーンウェイト(&amp;T)</translation>
    </message>
    <message>
        <source>Morph(&amp;M)</source>
        <translation>モーフ(&amp;M)</translation>
    </message>
    <message>
        <source>Anchor</source>
        <translation>アンカー</translation>
    </message>
    <message>
        <source>Weigh the mesh by coarse boxes around the bones</source>
        <translation>ボーンを囲む粗い箱でメッシュにウェイトを付けます</translation>
    </message>
    <message>
        <source>MMD Extend Model File (.pmx)...</source>
        <translation>MMD 拡張モデルファイル (.pmx)...</translation>
    </message>
    <message>
        <source>Add a PMX model to the document</source>
        <translation>PMX モデルをドキュメントに追加します</translation>
    </message>
    <message>
        <source>Write the document as a PMX model</source>
        <translation>ドキュメントを PMX モデルとして書き出します</translation>
    </message>
    <message>
        <source>MMD Motion Data (.vmd)...</source>
        <translation>MMD モーションデータ (.vmd)...</translation>
    </message>
    <message>
        <source>Move the bones by a motion, in place of the keys that they have</source>
        <translation>今あるキーに代えて、モーションでボーンを動かします</translation>
    </message>
    <message>
        <source>MMD Pose Data (.vpd)...</source>
        <translation>MMD ポーズデータ (.vpd)...</translation>
    </message>
    <message>
        <source>Pose the bones by a file, with keys at the current frame</source>
        <translation>現在のフレームのキーとして、ファイルのポーズをボーンに付けます</translation>
    </message>
    <message>
        <source>Reading %1...</source>
        <translation>%1 を読み込み中...</translation>
    </message>
    <message>
        <source>Writing %1...</source>
        <translation>%1 を書き出し中...</translation>
    </message>
    <message>
        <source>%1 is locked or hidden</source>
        <translation>%1 はロックまたは非表示です</translation>
    </message>
</context>
<context>
    <name>kmmorphreoderdialog</name>
    <message>
        <source>Reorder MorphNode</source>
        <translation>モーフを並べ替え</translation>
    </message>
    <message>
        <source>Selected as</source>
        <translation>選択行の位置</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>完了</translation>
    </message>
</context>
<context>
    <name>kmmorphwidget</name>
    <message>
        <source>Morphs</source>
        <translation>モーフ</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Select a mesh that has a morph tag.</source>
        <translation>モーフタグのあるメッシュを選択してください。</translation>
    </message>
    <message>
        <source>Morphs can&apos;t be copied by themselves</source>
        <translation>モーフだけをコピーすることはできません</translation>
    </message>
    <message>
        <source>Reorder MorphNode...</source>
        <translation>モーフを並べ替え...</translation>
    </message>
    <message>
        <source>Bring the morphs into another order</source>
        <translation>モーフの順序を変えます</translation>
    </message>
    <message>
        <source>Select a morph first</source>
        <translation>先にモーフを選択してください</translation>
    </message>
</context>
<context>
    <name>kmnodewidget</name>
    <message>
        <source>Nodes</source>
        <translation>ノード</translation>
    </message>
    <message>
        <source>Kind of the nodes that are shown</source>
        <translation>表示するノードの種類</translation>
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
    <message>
        <source>Empty the log</source>
        <translation>ログを空にします</translation>
    </message>
</context>
<context>
    <name>kmpaneldialog</name>
    <message>
        <source>Buttons of %1</source>
        <translation>%1のボタン</translation>
    </message>
    <message>
        <source>Filter by name</source>
        <translation>名前で絞り込み</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>追加</translation>
    </message>
    <message>
        <source>Add Line</source>
        <translation>区切り線を追加</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>取り除く</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>上へ</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>下へ</translation>
    </message>
    <message>
        <source>(Line)</source>
        <translation>(区切り線)</translation>
    </message>
    <message>
        <source>%1 (not there)</source>
        <translation>%1 (見つかりません)</translation>
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
    <name>kmsetupwidget</name>
    <message>
        <source>Setup</source>
        <translation>セットアップ</translation>
    </message>
    <message>
        <source>Physics Sheet</source>
        <translation>物理シート</translation>
    </message>
    <message>
        <source>Show rigid bodies and joints of the rig in tables</source>
        <translation>リグの剛体とジョイントを表で表示します</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>情報</translation>
    </message>
    <message>
        <source>ModelName</source>
        <translation>モデル名</translation>
    </message>
    <message>
        <source>Japanese</source>
        <translation>日本語</translation>
    </message>
    <message>
        <source>English</source>
        <translation>英語</translation>
    </message>
    <message>
        <source>Comment</source>
        <translation>コメント</translation>
    </message>
    <message>
        <source>Display</source>
        <translation>表示枠</translation>
    </message>
    <message>
        <source>Items</source>
        <translation>項目</translation>
    </message>
    <message>
        <source>not selected.</source>
        <translation>選択されていません。</translation>
    </message>
    <message>
        <source>Remove DisplayNode</source>
        <translation>表示枠の削除</translation>
    </message>
    <message>
        <source>Move DisplayNode</source>
        <translation>表示枠の移動</translation>
    </message>
    <message>
        <source>Create</source>
        <translation>作成</translation>
    </message>
    <message>
        <source>Add a display group</source>
        <translation>表示枠を追加します</translation>
    </message>
    <message>
        <source>List the selected bones in the group</source>
        <translation>選択したボーンを表示枠に加えます</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>削除</translation>
    </message>
    <message>
        <source>Remove the chosen groups</source>
        <translation>選択した表示枠を削除します</translation>
    </message>
    <message>
        <source>Take the chosen items out of the group</source>
        <translation>選択した項目を表示枠から外します</translation>
    </message>
    <message>
        <source>The group lists all of them already</source>
        <translation>グループには既にすべて登録されています</translation>
    </message>
    <message>
        <source>Bodies and joints are copied in the tree of the bones</source>
        <translation>剛体とジョイントはボーンのツリーでコピーします</translation>
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
    <name>kmtoolwidget</name>
    <message>
        <source>Tool</source>
        <translation>ツール</translation>
    </message>
    <message>
        <source>This tool has no options.</source>
        <translation>このツールに設定項目はありません。</translation>
    </message>
    <message>
        <source>This tool isn&apos;t there yet.</source>
        <translation>このツールはまだありません。</translation>
    </message>
    <message>
        <source>Reset Options</source>
        <translation>設定を元に戻す</translation>
    </message>
    <message>
        <source>Set the options of this tool to what they are in a new installation</source>
        <translation>このツールの設定を新規インストール時の値に戻します</translation>
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
    <name>modAnchorAddBoneCommand</name>
    <message>
        <source>Edit Anchor</source>
        <translation>アンカーの編集</translation>
    </message>
</context>
<context>
    <name>moveBoneToOtherContainerCommand</name>
    <message>
        <source>Move Bone</source>
        <translation>ボーンを移動</translation>
    </message>
</context>
<context>
    <name>moveCtrlNodeCommand</name>
    <message>
        <source>Move Bone</source>
        <translation>ボーンを移動</translation>
    </message>
</context>
<context>
    <name>moveDisplayItemCommand</name>
    <message>
        <source>Move DisplayItem</source>
        <translation>表示項目の移動</translation>
    </message>
</context>
<context>
    <name>moveDisplayNodeCommand</name>
    <message>
        <source>Move DisplayNode</source>
        <translation>表示枠の移動</translation>
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
    <name>primAssignShaderCommand</name>
    <message>
        <source>Assign Shader</source>
        <translation>シェーダーの割り当て</translation>
    </message>
</context>
<context>
    <name>rebindBoneWeightCommand</name>
    <message>
        <source>Rebind BoneWeight</source>
        <translation>ボーンウェイトの再割り当て</translation>
    </message>
</context>
<context>
    <name>redrawTagCommand</name>
    <message>
        <source>Redraw Tag</source>
        <translation>タグを再描画</translation>
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
    <name>relinkDisplayItemsCommand</name>
    <message>
        <source>Relink DisplayItem</source>
        <translation>表示項目の再リンク</translation>
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
    <name>removeBoneKeyCommand</name>
    <message>
        <source>Remove BoneKey</source>
        <translation>ボーンキーを削除</translation>
    </message>
</context>
<context>
    <name>removeDisplayItemCommand</name>
    <message>
        <source>Remove DisplayItem</source>
        <translation>表示項目の削除</translation>
    </message>
</context>
<context>
    <name>removeDisplayNodeCommand</name>
    <message>
        <source>Remove DisplayNode</source>
        <translation>表示枠の削除</translation>
    </message>
</context>
<context>
    <name>removeMorphCommand</name>
    <message>
        <source>Remove MorphNode</source>
        <translation>モーフを削除</translation>
    </message>
</context>
<context>
    <name>removeSdefFlagCommand</name>
    <message>
        <source>Remove Sdef Flag</source>
        <translation>SDEFフラグを解除</translation>
    </message>
</context>
<context>
    <name>renameDisplayNodeCommand</name>
    <message>
        <source>Rename DisplayNode</source>
        <translation>表示枠の名前の変更</translation>
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
    <name>reorderMorphCommand</name>
    <message>
        <source>Reorder MorphNode</source>
        <translation>モーフを並べ替え</translation>
    </message>
</context>
<context>
    <name>selectBoneCommand</name>
    <message>
        <source>Select Bone</source>
        <translation>ボーンを選択</translation>
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
    <name>setCtrlParentCommand</name>
    <message>
        <source>Set Parent</source>
        <translation>親を設定</translation>
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
    <name>setFloatBoneCommand</name>
    <message>
        <source>Set Float</source>
        <translation>小数の設定</translation>
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
    <name>setIntIntCommand</name>
    <message>
        <source>Set Int</source>
        <translation>整数の設定</translation>
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
    <name>setMovableBoneCommand</name>
    <message>
        <source>Set Movable</source>
        <translation>移動可能を設定</translation>
    </message>
</context>
<context>
    <name>setSdefFlagCommand</name>
    <message>
        <source>Set Sdef Flag</source>
        <translation>SDEFフラグを設定</translation>
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
<context>
    <name>showCtrlChildCommand</name>
    <message>
        <source>Show Bone</source>
        <translation>ボーンを表示</translation>
    </message>
</context>
</TS>
