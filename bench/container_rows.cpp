// The containers beside those of the standard library.

#include "bench/keep.h"

#include <list>
#include <memory>

#include "bench/row.h"
#include "qzstl/list_like"
#include "qzstl/string_like"

namespace {

using String = qz::basic_string<char>;

constexpr double CONTAINER_AIM = 1.2;
constexpr int PAIRS = 200;
constexpr int REPEATS = 1000;
constexpr int LIST_SIZE = 1000;

// What the works below are done with. The two texts differ in the last character.
template <class Text>
struct Texts
{
    explicit Texts(unsigned int nSize)
        : m_strSource(nSize, 'a'), m_textOne(m_strSource.c_str()), m_textOther(Other(nSize).c_str())
    {}

    static std::string Other(unsigned int nSize) { return std::string(nSize - 1, 'a') + 'b'; }

    std::string m_strSource;
    Text m_textOne;
    Text m_textOther;
    Text m_textTarget;
};

struct Build
{
    template <class Text>
    static void Run(Texts<Text>& texts)
    {
        Text text(texts.m_strSource.c_str());
        Keep(text);
    }
};

struct Copy
{
    template <class Text>
    static void Run(Texts<Text>& texts)
    {
        Text text(texts.m_textOne);
        Keep(text);
    }
};

struct Append
{
    template <class Text>
    static void Run(Texts<Text>& texts)
    {
        const auto nHalf = static_cast<unsigned int>(texts.m_strSource.size()) / 2;
        Text text;
        text.append(texts.m_strSource.c_str(), nHalf);
        text.append(texts.m_strSource.c_str() + nHalf, nHalf);
        Keep(text);
    }
};

struct Assign
{
    template <class Text>
    static void Run(Texts<Text>& texts)
    {
        texts.m_textTarget.assign(texts.m_strSource.c_str(),
                                  static_cast<unsigned int>(texts.m_strSource.size()));
        Keep(texts.m_textTarget);
    }
};

struct Compare
{
    template <class Text>
    static void Run(Texts<Text>& texts)
    {
        Keep(texts);
        Keep(texts.m_textOne.compare(0, Text::npos, texts.m_textOther.c_str(),
                                     static_cast<unsigned int>(texts.m_textOther.size())));
    }
};

struct Equal
{
    template <class Text>
    static void Run(Texts<Text>& texts)
    {
        Keep(texts);
        Keep(texts.m_textOne == texts.m_textOther);
    }
};

template <class Text, class Work>
Step Repeated(unsigned int nSize)
{
    const auto pTexts = std::make_shared<Texts<Text>>(nSize);
    return [pTexts] {
        for (int n = 0; n < REPEATS; ++n) {
            Work::Run(*pTexts);
        }
    };
}

template <class Work>
void AppendStringRows(std::vector<Row>& rows, const char* pWork)
{
    for (const unsigned int nSize : {8U, 14U, 32U, 200U}) {
        rows.push_back(
            {std::string("String ") + pWork + ", " + std::to_string(nSize) + " / std::string",
             CONTAINER_AIM, NO_AIM, PAIRS, [nSize] {
                 return Pair{Repeated<String, Work>(nSize),
                             Repeated<std::string, Work>(nSize),
                             {},
                             REPEATS};
             }});
    }
}

// Lists of pointers, like those of the directory.
using ProductList = QZList<int*>;
using StandardList = std::list<int*>;

template <class List>
void Fill(List& list)
{
    for (int n = 0; n < LIST_SIZE; ++n) {
        list.push_back(nullptr);
    }
}

template <class List>
void EraseAll(List& list)
{
    while (list.begin() != list.end()) {
        list.erase(list.begin());
    }
}

template <class List>
void CopyList(const List& list)
{
    List copy(list);
    Keep(copy);
}

std::size_t Walk(const ProductList& list)
{
    std::size_t nNull = 0;
    for (auto pos = list.begin(); pos != list.end(); pos = pos->next) {
        nNull += pos->value == nullptr ? 1U : 0U;
    }
    return nNull;
}

std::size_t Walk(const StandardList& list)
{
    std::size_t nNull = 0;
    for (const int* pValue : list) {
        nNull += pValue == nullptr ? 1U : 0U;
    }
    return nNull;
}

struct Lists
{
    ProductList m_product;
    StandardList m_standard;
};

Pair PushPair()
{
    const auto pLists = std::make_shared<Lists>();
    return {[pLists] { Fill(pLists->m_product); }, [pLists] { Fill(pLists->m_standard); },
            [pLists] {
                pLists->m_product.clear();
                pLists->m_standard.clear();
            },
            LIST_SIZE};
}

// Turn by turn, so that both lie alike in memory, whatever holes the heap has.
std::shared_ptr<Lists> FilledLists()
{
    auto pLists = std::make_shared<Lists>();
    for (int n = 0; n < LIST_SIZE; ++n) {
        pLists->m_product.push_back(nullptr);
        pLists->m_standard.push_back(nullptr);
    }
    return pLists;
}

Pair ErasePair()
{
    const auto pLists = FilledLists();
    return {[pLists] { EraseAll(pLists->m_product); }, [pLists] { EraseAll(pLists->m_standard); },
            [pLists] {
                if (pLists->m_product.size() == 0) {
                    Fill(pLists->m_product);
                }
                if (pLists->m_standard.empty()) {
                    Fill(pLists->m_standard);
                }
            },
            LIST_SIZE};
}

Pair WalkPair()
{
    const auto pLists = FilledLists();
    return {[pLists] { Keep(Walk(pLists->m_product)); },
            [pLists] { Keep(Walk(pLists->m_standard)); },
            {},
            LIST_SIZE};
}

Pair CopyPair()
{
    const auto pLists = FilledLists();
    return {[pLists] { CopyList(pLists->m_product); },
            [pLists] { CopyList(pLists->m_standard); },
            {},
            LIST_SIZE};
}

}  // namespace

void AppendContainerRows(std::vector<Row>& rows)
{
    AppendStringRows<Build>(rows, "build");
    AppendStringRows<Copy>(rows, "copy");
    AppendStringRows<Append>(rows, "append");
    AppendStringRows<Assign>(rows, "assign");
    AppendStringRows<Compare>(rows, "compare");
    AppendStringRows<Equal>(rows, "equal");
    constexpr std::pair<const char*, Pair (*)()> LIST_WORKS[] = {
        {"push", &PushPair}, {"walk", &WalkPair}, {"erase", &ErasePair}, {"copy", &CopyPair}};
    for (const auto& [pWork, pPrepare] : LIST_WORKS) {
        rows.push_back({std::string("List of 1000, ") + pWork + " / std::list", CONTAINER_AIM,
                        NO_AIM, PAIRS, pPrepare});
    }
}
