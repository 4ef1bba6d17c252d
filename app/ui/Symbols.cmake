# Which drawing stands for which symbol. A symbol is found at run time by its name alone, as
# ":/symbols/<name>.svg": this table is the whole look-up.

# name=file of the package bootstrap-icons
set(PACKAGED_SYMBOLS
    # The icons offered for a type
    cube.fill=box-fill
    circle.fill=circle-fill
    triangle.fill=triangle-fill
    hexagon.fill=hexagon-fill
    diamond.fill=diamond-fill
    drop.fill=droplet-fill
    flame.fill=fire
    snowflake=snow2
    bolt.fill=lightning-charge-fill
    sparkles=stars
    star.fill=star-fill
    moon.fill=moon-fill
    sun.max.fill=sun-fill
    shield.fill=shield-fill
    puzzlepiece.fill=puzzle-fill
    # Screens and their commands
    square.3.layers.3d.down.right=stack
    tag.fill=tag-fill
    list.star=list-stars
    map.fill=map-fill
    tablecells=table
    slider.horizontal.3=sliders
    star=star
    checkmark=check-lg
    scissors=scissors
    magnifyingglass=search
    xmark.circle.fill=x-circle-fill
    plus=plus-lg
    printer=printer
    gearshape=gear
    gearshape.fill=gear-fill
    info.circle=info-circle
    note.text=card-text
    plus.circle=plus-circle
    minus.circle=dash-circle
    doc.on.doc=files
    trash=trash
    pencil=pencil
    checkmark.circle.fill=check-circle-fill
    chart.bar.xaxis=bar-chart-line
    chart.bar.fill=bar-chart-fill
    square.stack.3d.up.fill=layers-fill
    square.and.arrow.up=box-arrow-up
    square.and.arrow.down=box-arrow-in-down
    doc.richtext=file-earmark-richtext
    globe=globe2
    envelope=envelope
    exclamationmark.triangle.fill=exclamation-triangle-fill
    # Parts of controls
    view.list=list-ul
    view.cards=grid
    view.statistics=bar-chart
    chevron.down=chevron-down
    chevron.expand=chevron-expand
    stepper.minus=dash
    folder=folder
    grip=grip-vertical
    reset=x-lg
)

# Our own drawings, in data/symbols
set(OWN_SYMBOLS
    cylinder.fill
    leaf.fill
    capsule.fill
    seal.fill
    arrow.trianglehead.swap
    books.vertical.fill
    square.and.arrow.down.on.square
    number.circle.fill
    spool.fill
    spool
    circle.grid.2x2.fill
)

find_path(BOOTSTRAP_ICONS_FOLDER box-fill.svg
    PATHS /usr/share/bootstrap-icons/svg /usr/share/icons/bootstrap-icons
    REQUIRED NO_DEFAULT_PATH)
find_file(BOOTSTRAP_ICONS_LICENCE copyright
    PATHS /usr/share/doc/bootstrap-icons
    REQUIRED NO_DEFAULT_PATH)

# Embeds every drawing of the two tables in `target`, with the licence of the packaged ones.
function(embed_symbols target)
    foreach(entry IN LISTS PACKAGED_SYMBOLS)
        string(REPLACE "=" ";" pair ${entry})
        list(GET pair 0 symbol)
        list(GET pair 1 drawing)
        set(file ${BOOTSTRAP_ICONS_FOLDER}/${drawing}.svg)
        set_source_files_properties(${file} PROPERTIES QT_RESOURCE_ALIAS ${symbol}.svg)
        list(APPEND files ${file})
    endforeach()
    foreach(symbol IN LISTS OWN_SYMBOLS)
        set(file ${PROJECT_SOURCE_DIR}/data/symbols/${symbol}.svg)
        set_source_files_properties(${file} PROPERTIES QT_RESOURCE_ALIAS ${symbol}.svg)
        list(APPEND files ${file})
    endforeach()
    qt_add_resources(${target} symbols PREFIX /symbols FILES ${files})

    set_source_files_properties(${BOOTSTRAP_ICONS_LICENCE} PROPERTIES
        QT_RESOURCE_ALIAS bootstrap-icons.txt)
    qt_add_resources(${target} licences PREFIX /licences FILES ${BOOTSTRAP_ICONS_LICENCE})
endfunction()
