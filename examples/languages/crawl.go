// Command crawl checks the links of local HTML pages: it reads all pages below a folder, collects what they link to and
// tells which of the targets do not exist.
package main

import (
	"bufio"
	"context"
	"errors"
	"flag"
	"fmt"
	"io/fs"
	"os"
	"path/filepath"
	"regexp"
	"slices"
	"strings"
	"sync"
	"time"
)

/*
A link is found by its attribute. Pages written by hand use
either kind of quote, so both are accepted.
*/
var link = regexp.MustCompile(`(?i)\b(?:href|src)\s*=\s*["']([^"'#?]+)`)

const (
	maxWorkers = 8
	maxLine    = 1 << 20 // bytes
	hexMask    = 0xFF
)

// errNoPages says that there was nothing to check.
var errNoPages = errors.New("no pages")

type state int

const (
	unknown state = iota
	present
	missing
)

func (s state) String() string {
	switch s {
	case present:
		return "present"
	case missing:
		return "missing"
	default:
		return fmt.Sprintf("state(%d)", int(s)&hexMask)
	}
}

// A finding is one link that leads nowhere.
type finding struct {
	Page   string `json:"page"`
	Target string `json:"target"`
	Line   int    `json:"line"`
}

// pages sends the names of all pages below root, until the context ends.
func pages(ctx context.Context, root string) (<-chan string, <-chan error) {
	names, failed := make(chan string), make(chan error, 1)
	go func() {
		defer close(names)
		failed <- filepath.WalkDir(root, func(path string, entry fs.DirEntry, err error) error {
			if err != nil || entry.IsDir() || !strings.HasSuffix(path, ".html") {
				return err
			}
			select {
			case names <- path:
				return nil
			case <-ctx.Done():
				return ctx.Err()
			}
		})
	}()
	return names, failed
}

func check(page string) (found []finding, err error) {
	file, err := os.Open(page)
	if err != nil {
		return nil, fmt.Errorf("page %q: %w", page, err)
	}
	defer file.Close()

	scanner := bufio.NewScanner(file)
	scanner.Buffer(nil, maxLine)
	for line := 1; scanner.Scan(); line++ {
		for _, match := range link.FindAllStringSubmatch(scanner.Text(), -1) {
			target := match[1]
			if strings.Contains(target, "://") || strings.ContainsRune(target, '\\') || target[0] == '/' {
				continue // not ours to judge
			}
			if _, err := os.Stat(filepath.Join(filepath.Dir(page), target)); errors.Is(err, fs.ErrNotExist) {
				found = append(found, finding{page, target, line})
			}
		}
	}
	return found, scanner.Err()
}

func main() {
	root := flag.String("root", ".", "the folder of the \"pages\"")
	limit := flag.Duration("limit", 30*time.Second, "when to give up")
	flag.Parse()

	ctx, cancel := context.WithTimeout(context.Background(), *limit)
	defer cancel()
	names, failed := pages(ctx, *root)

	var (
		all  []finding
		mu   sync.Mutex
		wait sync.WaitGroup
	)
	for range maxWorkers {
		wait.Add(1)
		go func() {
			defer wait.Done()
			for name := range names {
				found, err := check(name)
				if err != nil {
					fmt.Fprintln(os.Stderr, err)
				}
				mu.Lock()
				all = append(all, found...)
				mu.Unlock()
			}
		}()
	}
	wait.Wait()
	if err := <-failed; err != nil {
		fmt.Fprintln(os.Stderr, errors.Join(errNoPages, err))
		os.Exit(1)
	}

	slices.SortFunc(all, func(a, b finding) int { return strings.Compare(a.Page, b.Page) })
	for _, f := range all {
		fmt.Printf("%s:%d:\t'%s' is %v\n", f.Page, f.Line, f.Target, missing)
	}
}
