// Makes the word lists in resources/names from their sources.
// Usage: node scripts/bake-names.mjs FAKER_PACKAGE_FOLDER WORD_LIST
//   FAKER_PACKAGE_FOLDER  the unpacked npm package @faker-js/faker
//   WORD_LIST             a list of English words, one a line, names with capitals (Debian: wamerican-small)
import {readFileSync, writeFileSync} from 'node:fs';
import {dirname, join, resolve} from 'node:path';
import {fileURLToPath, pathToFileURL} from 'node:url';

const [packageFolder, wordList] = process.argv.slice(2);
const {allLocales} = await import(pathToFileURL(resolve(packageFolder, 'dist/index.js')));
const target = join(dirname(fileURLToPath(import.meta.url)), '../resources/names');

/// Letters that no mark was put on, as people without them on the keyboard write them.
const plain = {ß: 'ss', ς: 'σ', ð: 'd', þ: 'th', ø: 'o', ł: 'l', đ: 'd', æ: 'ae', œ: 'oe', ı: 'i', ə: 'e'};

/// As the program compares: decomposed, marks removed, case folded, plain letters.
const folded = text => text.normalize('NFD').replace(/\p{M}/gu, '').toLowerCase().replace(/./gu, c => plain[c] ?? c);

/// The texts in a list, a list of weighted values, or an object of such.
const texts = value =>
    typeof value === 'string' ? [value]
    : Array.isArray(value) ? value.flatMap(texts)
    : value && typeof value === 'object' ? ('value' in value ? texts(value.value) : Object.values(value).flatMap(texts))
    : [];

const hasCase = text => /[\p{Lu}\p{Lt}]/u.test(text);
const isWord = text => /^[\p{L}'-]{2,}$/u.test(text);
const parts = text => text.split(/[\s-]+/u);

function write(name, words) {
    const bytes = [...new Set(words)].map(word => Buffer.from(word)).sort(Buffer.compare);
    writeFileSync(join(target, name), Buffer.concat(bytes.flatMap(word => [word, Buffer.from('\n')])));
    console.log(name, bytes.length);
}

const person = key => Object.values(allLocales).flatMap(locale => texts(locale.person?.[key]))
    .filter(hasCase).flatMap(parts).filter(hasCase).map(folded).filter(isWord);
const own = name => readFileSync(join(target, name), 'utf8').split(/\s+/u).filter(isWord).map(folded);
write('given.txt', [...person('first_name'), ...own('own-given.txt')]);
write('family.txt', [...person('last_name'), ...own('own-family.txt')]);

const place = key => Object.values(allLocales).flatMap(locale => texts(locale.location?.[key]));
write('places.txt', ['city_name', 'country', 'state'].flatMap(place).filter(hasCase)
    .map(text => folded(text).replace(/[^\p{L}' -]/gu, '').trim()).filter(text => text.length > 2)
    .concat(readFileSync(join(target, 'own-phrases.txt'), 'utf8').split('\n').filter(text => text !== '')));

const foreign = Object.values(allLocales).flatMap(locale => Object.values(locale.word ?? {}).flatMap(texts))
    .filter(text => /^[\p{Script=Latin}\p{Script=Cyrillic}]{3,}$/u.test(text)).map(folded);
const english = readFileSync(wordList, 'utf8').split('\n').filter(word => /^[a-z]{3,}$/.test(word));
write('words.txt', [...english, ...foreign]);
