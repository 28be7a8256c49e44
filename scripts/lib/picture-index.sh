# shellcheck shell=bash
# A web page that shows the gallery's pictures side by side. To be sourced.

# write_picture_index FOLDER DPIS SIZES SMALL: reads FOLDER/<dpi>/pages.txt, and that in the folder above SMALL for the
# pictures on small screens, whose part of the path SMALL is; writes the page to standard output. The lists have blanks
# between their entries.
write_picture_index()
{
    local folder=$1 small=$4 picture page dpi size dpis sizes
    read -r -a dpis <<<"$2"
    read -r -a sizes <<<"$3"
    index_head "${#dpis[@]}"
    for dpi in "${dpis[@]}"; do
        printf '    <div class="dpi">%s DPI<small>%s %%</small></div>\n' "$dpi" $((dpi * 100 / 96))
    done
    printf '  </header>\n'
    while read -r picture page; do
        printf '  <section>\n    <h2>%s</h2>\n' "$page"
        for size in "${sizes[@]}"; do
            printf '    <h3>window of %s</h3>\n' "${size/x/ × }"
            index_row "$size"
        done
        printf '  </section>\n'
    done <"$folder/${dpis[0]}/pages.txt"
    while read -r picture page; do
        printf '  <section>\n    <h2>%s</h2>\n    <h3>on a small screen</h3>\n' "$page"
        index_row "$small"
        printf '  </section>\n'
    done <"$folder/${dpis[0]}/${small%/*}/pages.txt"
    printf '</main>\n</body>\n</html>\n'
}

# index_row PATH: one page at every DPI, from the folder PATH below that of the DPI; the caller's variables say which.
index_row()
{
    local path
    for dpi in "${dpis[@]}"; do
        path=$dpi/$1/$picture
        [[ -s $folder/$path ]] || fail "page $page has no picture $path"
        printf '    <a href="%s"><img src="%s" alt="%s at %s DPI" loading="lazy"></a>\n' \
            "$path" "$path" "$page" "$dpi"
    done
}

index_head()
{
    cat <<END
<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<title>vxdpi gallery</title>
<style>
  :root { color-scheme: light dark; --line: #d0d7de; --soft: #57606a; --paper: #ffffff; --ground: #f3f5f8; --ink: #1f2328; }
  @media (prefers-color-scheme: dark) {
    :root { --line: #3a414a; --soft: #9aa4af; --paper: #1c2128; --ground: #11151a; --ink: #e6edf3; }
  }
  body { margin: 0; background: var(--ground); color: var(--ink); font: 16px/1.5 system-ui, sans-serif; }
  main { max-width: 1800px; margin: 0 auto; padding: 2.5rem 2rem 4rem; }
  h1 { margin: 0; font-size: 1.9rem; }
  p { margin: .3rem 0 1.8rem; color: var(--soft); max-width: 60rem; }
  header, section { display: grid; grid-template-columns: repeat($1, 1fr); gap: 0 1.2rem; }
  header { position: sticky; top: 0; padding: .6rem 1.2rem; background: var(--ground); border-bottom: 1px solid var(--line); }
  .dpi { font-weight: 600; }
  .dpi small { margin-left: .6rem; font-weight: 400; color: var(--soft); }
  section { margin-top: 1.5rem; padding: .8rem 1.2rem 1.2rem; background: var(--paper);
            border: 1px solid var(--line); border-radius: 10px; align-items: start; }
  h2 { grid-column: 1 / -1; margin: 0; font-size: 1.1rem; }
  h3 { grid-column: 1 / -1; margin: .5rem 0 .3rem; font-size: .85rem; font-weight: 400; color: var(--soft); }
  img { display: block; width: 100%; height: auto; border: 1px solid var(--line); border-radius: 4px; }
  a:hover img { border-color: #4493f8; }
</style>
</head>
<body>
<main>
  <h1>vxdpi gallery</h1>
  <p>Every page of the sample application at each DPI, in a window of its usual size and in a larger one, drawn at one
     physical size as monitors of these densities would show it: nothing moves, everything gets sharper. Sizes are in
     pixels at 96 DPI. At the end is a dialog on screens of 1024 × 600, 1366 × 768 and 1920 × 1080 pixels, which have no
     room for it. Open a picture to see its own pixels.</p>
  <header>
END
}
