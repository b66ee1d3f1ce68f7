# Arguments, what they do to documents, and how they are explained.

case_arguments() {
    one_rect
    each runs <<'TABLE'
2|subcommand|
2|FILE|info
2|there is no option --nosuch of info|info --nosuch doc.shapes
2|there is no command improt; the nearest is import|improt
2|there is no option --formt of lines; the nearest is --format|lines --formt=csv doc.shapes
2|--engrave takes no value|lines doc.shapes -o x.gcode --engrave=false
2|'two' is one argument too many of info|info one two
2|out.txt|lines doc.shapes -o out.txt
2|--output|transform doc.shapes
2|--mix-colors goes with --order fast only|lines doc.shapes -o x.csv --order reading --mix-colors
2|--order|render doc.shapes -o x.png --order fast
2|--bare|info doc.shapes --version 3
2|--fit|transform doc.shapes -o x.shapes --fit 0,0,0,10
2|nan is no number from|transform doc.shapes -o x.shapes --rotate nan
2|1e90 is no number from|transform doc.shapes -o x.shapes --move 1e90,0
1|doc.shapes: would go beyond a kilometre|transform doc.shapes -o x.shapes --move 1e6,0
1|10000 rows of 10000 cells are too many|array doc.shapes -o x.shapes --rows 10000 --cols 10000
1|2 rows of 2000 cells go beyond a kilometre|array doc.shapes -o x.shapes --rows 2 --cols 2000 --gap 1e4,0
2|2x1 has no room for 3 drawings|import in.svg in.svg in.svg --grid 2x1 -o x.shapes
2|2 places for 3 drawings|import in.svg in.svg in.svg --at 1,1 --at 2,2 -o x.shapes
2|1 is no X,Y|import in.svg --at 1 -o x.shapes
2|0x4 is neither|import in.svg --grid 0x4 -o x.shapes
2|a table has one corner|import in.svg in.svg --grid 2 --at 1,1 --at 2,2 -o x.shapes
TABLE
}

case_transform() {
    import <<<"<path fill='none' stroke='red' d='M0 0 L192 0 L192 96'/>"
    follows() { # WANTED ARGUMENTS
        "$shapedoc" transform doc.shapes -o moved.shapes $2
        expect "$2" "$1" "$("$shapedoc" lines moved.shapes --order reading -o - --format csv |
            sed 1d | cut -d, -f4-7 | tr '\n' ' ' | sed 's/\.\([0-9]\)000/.\1/g;s/ $//')"
    }
    each follows <<'TABLE'
10.0,-5.0,60.8,-5.0 60.8,-5.0,60.8,20.4|--move=10,-5
1.0,2.0,11.0,2.0 11.0,2.0,11.0,22.0|--fit 1,2,10,20
50.8,0.0,0.0,0.0 0.0,0.0,0.0,25.4|--mirror-x
0.0,25.4,50.8,25.4 50.8,25.4,50.8,0.0|--mirror-y
0.0,10.0,0.0,60.8 0.0,60.8,-25.4,60.8|--rotate 90 --move 0 10 --about 0,0
-10.0,0.0,-10.0,50.8 -10.0,50.8,-35.4,50.8|--move 0,10 --rotate 90 --about 0,0
TABLE
}

# A circle of curves, one of straight pieces, and a triangle, which nothing shorter fits.
case_fit() {
    {
        echo "<circle cx='100' cy='100' r='90' fill='none' stroke='red'/>"
        awk 'BEGIN { printf "<path fill=\"none\" stroke=\"red\" d=\"M 300 200"
            for (i = 1; i < 600; i++)
                printf " L %.4f %.4f", 200 + 100 * cos(i * 0.0104719755), 200 + 100 * sin(i * 0.0104719755)
            print " Z\"/>" }'
        echo "<path fill='none' stroke='red' d='M0 0 L96 0 L96 96 Z'/>"
    } | import
    "$shapedoc" import --flatten in.svg -o flat.shapes
    each runs <<'TABLE'
0||lines flat.shapes -o out.csv
1|curve fitting: is off|fit doc.shapes -o x.shapes
TABLE
    export LD_LIBRARY_PATH=$PLUGINS
    each runs <<'TABLE'
0|curve fitting was on|lines flat.shapes -o out.csv
0|left as they are: 1 x outline of curves, 1 x outline that nothing shorter fits|fit doc.shapes -o fitted.shapes
TABLE
    awk '/^all/ { exit !($2 > 590 && $5 < 44 && $9 <= 0.005) }' out.txt || fail "$(cat out.txt)"
    runs 0 "all: 5 points before, 5 after, largest deviation 0.000000" "fit fitted.shapes -o doc.shapes"
    cmp doc.shapes fitted.shapes
}

# Whatever option a command has stands in its help, in the manual page and in every completion.
case_explained() {
    local form command option man bash zsh fish sources=$here/../../apps/shapedoc
    for form in man bash zsh fish; do "$shapedoc" help --as $form >text.$form; done
    bash -n text.bash
    ! type zsh >/dev/null 2>&1 || zsh -n text.zsh
    ! type fish >/dev/null 2>&1 || fish -n text.fish
    ! type mandoc >/dev/null 2>&1 || mandoc -Tlint -W error text.man
    runs 0 "shapedoc 1" --version
    grep -ohzE 'AddCommand\(\s*"[a-z]+' "$sources"/*.cpp | tr '\0' '\n' | grep -oE '[a-z]+$' >commands.txt
    [ "$(wc -l <commands.txt)" -ge 10 ] || fail "few commands in $sources"
    while read -r command; do
        "$shapedoc" help "$command" >help.txt
        cmp help.txt <("$shapedoc" "$command" --help)
        man=$(sed -n "/^\.SS $command\$/,/^\.S[SH]/p" text.man | sed 's/\\-/-/g')
        bash=$(sed -n "/^    $command)/,/esac ;;\$/p" text.bash)
        zsh=$(sed -n "/^        $command)/,/ ;;\$/p" text.zsh)
        fish=$(grep -F "from $command'" text.fish)$'\n'
        for option in $(grep -oE '^  (-., )?--[a-z-]+' help.txt | grep -oE -- '--[a-z-]+' | grep -vx -- --help); do
            [[ $man == *$option@('\fR'|=)* ]] || fail "manual: no $option of $command"
            [[ $bash == *[\'\ ]$option[\'\ ]* ]] || fail "bash: no $option of $command"
            [[ $zsh == *"'"?('*')$option?(=)'['* ]] || fail "zsh: no $option of $command"
            [[ $fish == *" -l ${option#--} "* ]] || fail "fish: no $option of $command"
        done
    done <commands.txt
    # What the sources declare is in the manual.
    man=$(<text.man)
    for option in $(grep -ohzE '\bAdd[A-Z][a-z]+\((command, )?\s*"[^"]*--[a-z-]+' "$sources"/*.cpp | tr '\0' '\n' |
        grep -oE -- '--[a-z-]+' | sort -u); do
        [[ $man == *"${option//-/\\-}"* ]] || fail "the manual has no $option"
    done
}
